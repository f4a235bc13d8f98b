#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <optional>

#include "tests/config/config_test.h"

namespace tolvane {
namespace {

static_assert(FileSaveSystem::kConfigMissing == -1 && FileSaveSystem::kConfigRefused == -2 &&
                  FileSaveSystem::kConfigLateError == -3,
              "each result tells another thing");
static_assert(FileSaveSystem::kConfigSaveError == -1);

class ConfigLoad : public ConfigTest {
 protected:
  ConfigLoad() {
    device.t_bitRate = 6;
    device.t_dividend_ratio = 2.5;
    device.t_MsgMarkerColor(7, 77);
    Save();
    device.Param_ALL_Clear();
  }

  void ExpectDefaults() {
    EXPECT_EQ(device.t_bitRate, 2);
    EXPECT_EQ(device.t_dividend_ratio, 1.0);
    EXPECT_EQ(device.t_LogComment, u"ＣＡＮ受信ログ");
  }
};

TEST_F(ConfigLoad, TakesTheSettingsOver) {
  EXPECT_EQ(Load(), FileSaveSystem::kConfigLoaded);
  EXPECT_EQ(device.t_bitRate, 6);
  EXPECT_EQ(device.t_dividend_ratio, 2.5);
  EXPECT_EQ(device.t_MsgMarkerColor(7), 77);
  EXPECT_TRUE(message_box.Boxes().empty());
  EXPECT_TRUE(files.FileExists(kPath));
}

TEST_F(ConfigLoad, WithoutAFileTheDefaultsStand) {
  files.Remove(kPath);
  EXPECT_EQ(Load(), FileSaveSystem::kConfigMissing);
  ExpectDefaults();
}

TEST_F(ConfigLoad, UnreadableFileIsAnErrorAndStays) {
  files.Lock(kPath, true);
  EXPECT_EQ(Load(), FileSaveSystem::kConfigMissing);
  ExpectDefaults();
  EXPECT_TRUE(files.FileExists(kPath));
}

TEST_F(ConfigLoad, NoMoreIsReadThanTheLongestFileHolds) {
  class Disk : public platform::memory::FileSystem {
   public:
    using FileSystem::FileSystem;
    std::optional<platform::BinaryRead> ReadBinary(StringView path, std::size_t size) override {
      asked = size;
      return FileSystem::ReadBinary(path, size);
    }
    std::size_t asked = 0;
  } disk(code_page);
  disk.AddFile(kPath, Config());
  EXPECT_EQ(FileSaveSystem::LoadConfigFile(device, disk, code_page, message_box),
            FileSaveSystem::kConfigLoaded);
  EXPECT_EQ(disk.asked, 382U + 5U * 65535U);
}

TEST_F(ConfigLoad, FailedCloseBehindACompleteLoadIsItsOwnResult) {
  files.FailClose(true);
  EXPECT_EQ(Load(), FileSaveSystem::kConfigLateError);
  EXPECT_EQ(device.t_bitRate, 6) << "what was copied stays";
  SetVersion(100);
  device.Param_ALL_Clear();
  EXPECT_EQ(Load(), FileSaveSystem::kConfigMissing) << "nothing was loaded";
  ExpectDefaults();
}

TEST_F(ConfigLoad, FilesOfOtherProgramsAreRefusedAndDeleted) {
  struct Row {
    const char* label;
    StringView title;
    StringView copyright;
    std::int32_t result;
  };
  const Row rows[] = {
      {"ours", u"Tolvane Ver1.23", u"Copyright (C) 2026 Tolvane Project", 0},
      {"ours, earlier title", u"xx Tolvane", u"by Tolvane Project, 2020", 0},
      {"other title", u"tolvane Ver1.23", u"Copyright (C) 2026 Tolvane Project", -2},
      {"other maker", u"Tolvane Ver1.23", u"Copyright (C) 2026 Tolvane", -2},
      {"no texts", u"", u"", -2}};
  for (const Row& row : rows) {
    device.Application_title = row.title;
    device.Copy_light = row.copyright;
    files.Remove(kPath);
    Save();
    device.Param_ALL_Clear();
    EXPECT_EQ(Load(), row.result) << row.label;
    EXPECT_EQ(device.Application_title, u"Tolvane Ver1.23") << row.label;
    EXPECT_EQ(device.Copy_light, u"Copyright (C) 2026 Tolvane Project") << row.label;
    EXPECT_EQ(files.FileExists(kPath), row.result == 0) << row.label;
  }
  EXPECT_TRUE(message_box.Boxes().empty());
}

TEST_F(ConfigLoad, RefusedFileIsDeletedThoughItIsReadOnly) {
  SetVersion(120);
  files.SetAttributes(kPath, platform::memory::kReadOnly);
  EXPECT_EQ(Load(), FileSaveSystem::kConfigRefused);
  EXPECT_FALSE(files.FileExists(kPath));
}

TEST_F(ConfigLoad, RefusedFileThatCannotBeDeletedIsAnError) {
  SetVersion(121);
  message_box.Answer(false);
  message_box.WhileShown([&] { files.Lock(kPath, true); });
  EXPECT_EQ(Load(), FileSaveSystem::kConfigMissing);
  EXPECT_TRUE(files.FileExists(kPath));
  ExpectDefaults();
}

TEST_F(ConfigLoad, AFieldCountsFromTheVersionThatFirstHeldIt) {
  device.t_MsgFmtTyp = 1;
  device.t_Timer_Mode = 1;
  device.t_Excel_Format = 2;
  device.t_Excel_soft = 2;
  device.t_dividend_ratio = 2.5;
  Save();
  for (const std::int32_t version : {121, 122}) {
    SetVersion(version);
    device.Param_ALL_Clear();
    message_box.Answer(true);
    EXPECT_EQ(Load(), FileSaveSystem::kConfigLoaded) << version;
    EXPECT_EQ(device.t_MsgFmtTyp, 1) << version;
    EXPECT_EQ(device.t_Timer_Mode, 1) << version;
    EXPECT_EQ(device.t_Excel_Format, 2) << version;
    EXPECT_EQ(device.t_Excel_soft, 2) << version;
    EXPECT_EQ(device.t_dividend_ratio, version == 122 ? 2.5 : 1.0) << version;
  }
}

TEST_F(ConfigLoad, VersionDecidesWhetherTheUserIsAsked) {
  struct Row {
    std::int32_t version;
    bool asked;
    bool answer;
    std::int32_t result;
    double ratio;
  };
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  const Row rows[] = {{kLowest, false, true, -2, 1.0}, {0, false, true, -2, 1.0},
                      {120, false, true, -2, 1.0},     {121, true, true, 0, 1.0},
                      {121, true, false, -2, 1.0},     {122, true, true, 0, 2.5},
                      {122, true, false, -2, 1.0},     {123, false, false, 0, 2.5},
                      {124, false, false, 0, 2.5},     {999, false, false, 0, 2.5}};
  const std::string file = Config();
  for (const Row& row : rows) {
    files.AddFile(kPath, file);
    SetVersion(row.version);
    device.Param_ALL_Clear();
    platform::memory::MessageBox box(journal, gate);
    if (row.asked) box.Answer(row.answer);
    EXPECT_EQ(FileSaveSystem::LoadConfigFile(device, files, code_page, box), row.result)
        << row.version;
    EXPECT_EQ(box.Boxes().size(), row.asked ? 1U : 0U) << row.version;
    EXPECT_EQ(device.t_dividend_ratio, row.ratio) << row.version;
    EXPECT_EQ(device.t_bitRate, row.result == 0 ? 6 : 2) << row.version;
    EXPECT_EQ(files.FileExists(kPath), row.result == 0) << row.version;
    EXPECT_EQ(device.install_version, 123);
    EXPECT_EQ(device.Application_title, u"Tolvane Ver1.23");
  }
}

TEST_F(ConfigLoad, TheQuestionNamesBothVersions) {
  struct Row {
    std::int32_t version;
    StringView text;
  };
  for (const Row& row : {Row{121, u"1.21"}, Row{122, u"1.22"}}) {
    SetVersion(row.version);
    message_box.Answer(true);
    EXPECT_EQ(Load(), FileSaveSystem::kConfigLoaded);
    EXPECT_EQ(message_box.Boxes().back().kind, platform::memory::MessageBox::Kind::kYesNo);
    EXPECT_EQ(message_box.Boxes().back().title, u"Tolvane");
    String text =
        u"古いバージョンの設定データを検出しました。データを引き継ぎますか？\r\n"
        u"ソフトのバージョン：1.23\r\n"
        u"設定データのバージョン：";
    EXPECT_EQ(message_box.Boxes().back().text, text.append(row.text));
  }
  device.install_version = 130;
  message_box.Answer(true);
  EXPECT_EQ(Load(), FileSaveSystem::kConfigLoaded);
  EXPECT_NE(message_box.Boxes().back().text.find(u"ソフトのバージョン：1.3\r\n"), String::npos);
}

TEST_F(ConfigLoad, VeryShortFileIsRefused) {
  const std::string file = Config();
  for (std::size_t size = 0; size < kVersionOffset + 4; ++size) {
    files.AddFile(kPath, file.substr(0, size));
    EXPECT_EQ(Load(), FileSaveSystem::kConfigRefused) << size;
    EXPECT_FALSE(files.FileExists(kPath)) << size;
  }
  ExpectDefaults();
}

TEST_F(ConfigLoad, FileThatEndsBehindTheVersionGivesZerosForTheRest) {
  const std::string file = Config();
  for (std::size_t size = kVersionOffset + 4; size < file.size(); ++size) {
    device.Param_ALL_Clear();
    files.AddFile(kPath, file.substr(0, size));
    ASSERT_EQ(Load(), FileSaveSystem::kConfigLoaded) << size;
    EXPECT_EQ(device.t_dividend_ratio, 0.0) << size;
    EXPECT_EQ(device.t_bitRate, size < kVersionOffset + 8 ? 0 : 6) << size;
  }
  files.AddFile(kPath, file.substr(0, kVersionOffset + 4));
  ASSERT_EQ(Load(), FileSaveSystem::kConfigLoaded);
  EXPECT_EQ(device.t_LogComment, u"");
  EXPECT_EQ(device.t_LogSaveFilePath, u"");
  EXPECT_EQ(device.t_MsgMarkerColor(0), 0);
}

TEST_F(ConfigLoad, TextThatIsCutShortIsEmptyAndAllBehindItIsZero) {
  const std::string file = Config();
  files.AddFile(kPath, file.substr(0, file.size() - 8 - 1));  // no ratio, no end of the comment
  ASSERT_EQ(Load(), FileSaveSystem::kConfigLoaded);
  EXPECT_EQ(device.t_LogSaveFilePath, u"C:\\Tolvane");
  EXPECT_EQ(device.t_LogComment, u"");
  EXPECT_EQ(device.t_dividend_ratio, 0.0);
}

TEST_F(ConfigLoad, CountThatPointsBeyondTheFileEndsTheReading) {
  std::string bytes = Config();
  bytes.replace(0, 2, "\xFF\xFF");
  files.AddFile(kPath, bytes);
  EXPECT_EQ(Load(), FileSaveSystem::kConfigRefused);
}

TEST_F(ConfigLoad, TablesStopAtTheirBounds) {
  device.t_MsgMarker_MAX = 6;
  EXPECT_EQ(Load(), FileSaveSystem::kConfigLoaded);
  EXPECT_EQ(device.t_MsgMarkerColor(7), Rgb(243, 179, 255));
}

}  // namespace
}  // namespace tolvane
