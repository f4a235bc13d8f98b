#include <gtest/gtest.h>

#include "tests/config/config_test.h"
#include "tests/helpers/expect_bytes.h"
#include "tests/helpers/settings_text.h"

namespace tolvane {
namespace {

using namespace std::string_literals;

class ConfigSave : public ConfigTest {};

/// Every setting different from every other, so that swapped settings are noticed.
void FillDistinct(ELM327_Info& device) {
  device.t_SaveFormat = 3;
  device.t_Save_ID_DisableMode = 4;
  device.t_bitRate = 7;
  device.t_msgID_type = 128;
  device.t_MsgFmtTyp = 9;
  device.t_silent_mode = 10;
  device.t_ViewCaution = 11;
  device.t_Timer_Mode = 12;
  device.t_DataChangeColorTime = 0x0D0D0D0D;
  device.t_DataChangeColor = 0x0102030E;
  device.t_DataChangeColorEnable = 15;
  device.t_MsgLateColor_Ratio = 16;
  device.t_MsgLateColor_Time = 17;
  device.t_MsgLateColor = 18;
  device.t_MsgLateColorEnable = 19;
  device.t_MsgBlackout_Ratio = 20;
  device.t_MsgBlackout_Color = 21;
  device.t_MsgBlackout_Enable = -22;
  for (std::int16_t i = 0; i < 8; ++i) {
    device.t_DisableID_ON(i, 0x2300 + i);
    device.t_DisableID_Start(i, 0x2400 + i);
    device.t_DisableID_End(i, 0x2500 + i);
    device.t_MsgMarker_ON(i, 0x2600 + i);
    device.t_MsgMarkerID(i, 0x2700 + i);
    device.t_MsgMarkerStartByte(i, 0x2800 + i);
    device.t_MsgMarkerEndByte(i, 0x2900 + i);
    device.t_MsgMarkerColor(i, 0x3000 + i);
  }
  device.t_SaveFilePath_mode = 31;
  device.t_SaveFilePath = u"E:\\表";
  device.t_LogSaveFormat = 33;
  device.t_Excel_Format = 34;
  device.t_Excel_soft = 35;
  device.t_LogSaveFilePath_mode = 36;
  device.t_LogSaveFilePath = u"";
  device.t_LogSave_Enable = 38;
  device.t_LogSave_subFolder = 39;
  device.t_LogComment = u"a\u20ACb\U0001F600c";
  device.t_dividend_ratio = 1.5;
}

// The bytes of the file for the settings of FillDistinct.
// clang-format off
const std::string kDistinct =
    "\x0F\x00"s
    "Tolvane Ver1.23"
    "\x22\x00"s
    "Copyright (C) 2026 Tolvane Project"
    "\x03\x00\x00\x00" "\x04\x00\x00\x00" "\x01\x00\x00\x00" "\x7B\x00\x00\x00"
    "\x07\x00\x00\x00" "\x80\x00\x00\x00" "\x09\x00\x00\x00" "\x0A\x00\x00\x00"
    "\x0B\x00\x00\x00" "\x0C\x00\x00\x00" "\x0D\x0D\x0D\x0D" "\x0E\x03\x02\x01"
    "\x0F\x00\x00\x00" "\x10\x00\x00\x00" "\x11\x00\x00\x00" "\x12\x00\x00\x00"
    "\x13\x00\x00\x00" "\x14\x00\x00\x00" "\x15\x00\x00\x00" "\xEA\xFF\xFF\xFF"
    "\x00\x23\x00\x00" "\x01\x23\x00\x00" "\x02\x23\x00\x00" "\x03\x23\x00\x00"
    "\x04\x23\x00\x00" "\x05\x23\x00\x00" "\x06\x23\x00\x00" "\x07\x23\x00\x00"
    "\x00\x24\x00\x00" "\x01\x24\x00\x00" "\x02\x24\x00\x00" "\x03\x24\x00\x00"
    "\x04\x24\x00\x00" "\x05\x24\x00\x00" "\x06\x24\x00\x00" "\x07\x24\x00\x00"
    "\x00\x25\x00\x00" "\x01\x25\x00\x00" "\x02\x25\x00\x00" "\x03\x25\x00\x00"
    "\x04\x25\x00\x00" "\x05\x25\x00\x00" "\x06\x25\x00\x00" "\x07\x25\x00\x00"
    "\x00\x26\x00\x00" "\x01\x26\x00\x00" "\x02\x26\x00\x00" "\x03\x26\x00\x00"
    "\x04\x26\x00\x00" "\x05\x26\x00\x00" "\x06\x26\x00\x00" "\x07\x26\x00\x00"
    "\x00\x27\x00\x00" "\x01\x27\x00\x00" "\x02\x27\x00\x00" "\x03\x27\x00\x00"
    "\x04\x27\x00\x00" "\x05\x27\x00\x00" "\x06\x27\x00\x00" "\x07\x27\x00\x00"
    "\x00\x28\x00\x00" "\x01\x28\x00\x00" "\x02\x28\x00\x00" "\x03\x28\x00\x00"
    "\x04\x28\x00\x00" "\x05\x28\x00\x00" "\x06\x28\x00\x00" "\x07\x28\x00\x00"
    "\x00\x29\x00\x00" "\x01\x29\x00\x00" "\x02\x29\x00\x00" "\x03\x29\x00\x00"
    "\x04\x29\x00\x00" "\x05\x29\x00\x00" "\x06\x29\x00\x00" "\x07\x29\x00\x00"
    "\x00\x30\x00\x00" "\x01\x30\x00\x00" "\x02\x30\x00\x00" "\x03\x30\x00\x00"
    "\x04\x30\x00\x00" "\x05\x30\x00\x00" "\x06\x30\x00\x00" "\x07\x30\x00\x00"
    "\x1F\x00\x00\x00"
    "\x05\x00"
    "E:\\\x95\x5C"
    "\x21\x00\x00\x00" "\x22\x00\x00\x00" "\x23\x00\x00\x00" "\x24\x00\x00\x00"
    "\x00\x00"
    "\x26\x00\x00\x00" "\x27\x00\x00\x00"
    "\x05\x00"
    "a?b?c"
    "\x00\x00\x00\x00\x00\x00\xF8\x3F"s;
// clang-format on

TEST_F(ConfigSave, WholeRecordByteForByte) {
  FillDistinct(device);
  EXPECT_EQ(Save(), FileSaveSystem::kConfigSaved);
  EXPECT_TRUE(SameBytes(Config(), kDistinct));
}

TEST_F(ConfigSave, RecordIs382BytesAndItsTexts) {
  FillDistinct(device);
  const auto saved_size = [&] {
    files.Remove(kPath);
    EXPECT_EQ(Save(), FileSaveSystem::kConfigSaved);
    return Config().size();
  };
  EXPECT_EQ(saved_size(), 382U + 15U + 34U + 5U + 0U + 5U);
  device.Application_title = u"Tolvane";
  device.Copy_light = u"";
  device.t_SaveFilePath = u"";
  device.t_LogSaveFilePath = u"C:\\表";
  device.t_LogComment = u"";
  EXPECT_EQ(saved_size(), 382U + 7U + 0U + 0U + 5U + 0U);
}

TEST_F(ConfigSave, EveryFieldComesBackToItsPlace) {
  files.AddFile(kPath, kDistinct);
  EXPECT_EQ(Load(), FileSaveSystem::kConfigLoaded);
  ELM327_Info expected(u"C:\\Tolvane");
  expected.Param_ALL_Clear();
  FillDistinct(expected);
  expected.t_LogComment = u"a?b?c";
  files.Remove(kPath);
  Save();
  EXPECT_TRUE(SameBytes(Config(), kDistinct)) << "what was read is written as it was";
  EXPECT_EQ(SettingsText(device), SettingsText(expected));
}

TEST_F(ConfigSave, MissingFolderWritesNothingAndIsNoError) {
  files.Remove(u"C:\\Tolvane");
  EXPECT_EQ(Save(), FileSaveSystem::kConfigSaved);
  EXPECT_EQ(Config(), "no file");
}

TEST_F(ConfigSave, ShorterRecordLeavesTheTailOfTheOldFile) {
  device.t_LogComment = u"a long comment";
  Save();
  const std::string longer = Config();
  device.t_LogComment = u"";
  Save();
  const std::string shorter = Config();
  EXPECT_EQ(shorter.size(), longer.size());
  EXPECT_EQ(shorter.substr(shorter.size() - 14), longer.substr(longer.size() - 14));
  device.t_LogComment = u"other";
  EXPECT_EQ(Load(), FileSaveSystem::kConfigLoaded);
  EXPECT_EQ(device.t_LogComment, u"");
  EXPECT_EQ(device.t_dividend_ratio, 1.0) << "the tail is never reached";
}

TEST_F(ConfigSave, FaultsOfTheDiskAreAnError) {
  Save();
  const std::string before = Config();
  device.t_bitRate = 8;
  files.Lock(kPath, true);
  EXPECT_EQ(Save(), FileSaveSystem::kConfigSaveError);
  files.Lock(kPath, false);
  files.SetAttributes(kPath, platform::memory::kReadOnly);
  EXPECT_EQ(Save(), FileSaveSystem::kConfigSaveError);
  EXPECT_TRUE(SameBytes(Config(), before));
  files.Remove(kPath);
  files.FreeSpace(10);
  EXPECT_EQ(Save(), FileSaveSystem::kConfigSaveError);
  files.FreeSpace(1000);
  files.FailClose(true);
  EXPECT_EQ(Save(), FileSaveSystem::kConfigSaveError);
}

TEST_F(ConfigSave, TextBeyondItsCountIsCutAtAWholeCharacter) {
  struct Row {
    const char* label;
    String comment;
    std::size_t bytes;
    StringView start;
  };
  const String filler(65534, u'x');
  const Row rows[] = {
      {"fits exactly", filler + u"y", 65535, u"xx"},
      {"one too many", filler + u"yz", 65535, u"xx"},
      {"double byte across the end", filler + u"表", 65534, u"xx"},
      {"pair across the end is one question mark", filler + u"\U0001F600z", 65535, u"xx"},
      {"pair well before the end", u"\U0001F601" + filler + u"z", 65535, u"?x"},
      {"half a pair at the very end", filler + u"y\xD83D", 65535, u"xx"},
      {"all double bytes", String(40000, u'表'), 65534, u"表表"}};
  for (const Row& row : rows) {
    device.t_LogComment = row.comment;
    files.Remove(kPath);
    Save();
    const std::string bytes = Config();
    EXPECT_EQ(bytes.size(), 382U + 15U + 34U + 2U * 10U + row.bytes) << row.label;
    ASSERT_EQ(Load(), FileSaveSystem::kConfigLoaded) << row.label;
    EXPECT_EQ(device.t_dividend_ratio, 1.0) << row.label;
    EXPECT_EQ(device.t_LogComment.find(u'\u30FB'), String::npos) << "no broken character";
    EXPECT_EQ(device.t_LogComment.substr(0, 2), row.start) << row.label;
  }
}

TEST_F(ConfigSave, TableBoundsOutsideTheTablesNeverReachOutside) {
  FillDistinct(device);
  device.t_DisableID_MAX = 1'000'000;
  device.t_MsgMarker_MAX = 2'000'000'000;
  Save();
  EXPECT_TRUE(SameBytes(Config(), kDistinct));
  EXPECT_EQ(Load(), FileSaveSystem::kConfigLoaded);

  files.Remove(kPath);
  device.t_DisableID_MAX = -1;
  device.t_MsgMarker_MAX = 0;
  Save();
  const std::string bytes = Config();
  EXPECT_EQ(bytes.size(), kDistinct.size());
  constexpr std::size_t kTables = 2 + 15 + 2 + 34 + 20 * 4;
  EXPECT_TRUE(SameBytes(bytes.substr(kTables, 3 * 32), std::string(3 * 32, '\0')));
  EXPECT_TRUE(
      SameBytes(bytes.substr(kTables + 3 * 32, 32), "\x00\x26\x00\x00"s + std::string(28, '\0')));
}

}  // namespace
}  // namespace tolvane
