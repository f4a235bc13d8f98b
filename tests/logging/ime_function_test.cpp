#include "logging/ime_function.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "logging/log_naming.h"
#include "platform/memory/memory_platform.h"
#include "run/elm327_info.h"

namespace tolvane {
namespace {

using Kind = platform::memory::MessageBox::Kind;

constexpr StringView kDesktop = u"C:\\Users\\tester\\Desktop";

class Snapshot : public testing::Test {
 protected:
  Snapshot() {
    device.Param_ALL_Clear();
    files.AddFolder(u"C:\\Tolvane");
    files.AddFolder(kDesktop);
    memory_.RTB_MainView.Text(u"ID  表");
  }

  void Save() { IME_Function::SaveSnapshotFile(device, outside_, memory_.RTB_MainView); }

  void ExpectLastBox(Kind kind, StringView text) {
    ASSERT_FALSE(message_box.Boxes().empty());
    EXPECT_EQ(message_box.Boxes().back().kind, kind);
    EXPECT_EQ(message_box.Boxes().back().text, text);
    EXPECT_EQ(message_box.Boxes().back().title, u"Tolvane");
  }

  void AddSnapshots(std::int32_t last) {
    for (std::int32_t number = 1; number <= last; ++number) {
      String path = u"C:\\Tolvane\\KS26010509-";
      files.AddFile(path.append(FileNumberText(number)).append(u".txt"), "old");
    }
  }

  platform::memory::MemoryPlatform memory_;
  platform::Platform outside_ = memory_.Platform();
  platform::memory::FileSystem& files = memory_.files;
  platform::memory::MessageBox& message_box = memory_.message_box;
  ELM327_Info device{u"C:\\Tolvane"};
};

TEST_F(Snapshot, PlainTextIsInTheSystemCodePage) {
  device.t_SaveFormat = 2;
  Save();
  EXPECT_EQ(files.Bytes(u"C:\\Tolvane\\KS26010509-001.txt"), "ID  \x95\x5c");
  ExpectLastBox(Kind::kPlain, u"保存しました");
}

TEST_F(Snapshot, RichTextHasItsExtensionAndFormat) {
  device.t_SaveFormat = 1;
  Save();
  const auto bytes = files.Bytes(u"C:\\Tolvane\\KS26010509-001.rtf");
  ASSERT_TRUE(bytes.has_value());
  EXPECT_TRUE(bytes->starts_with("{\\rtf1"));
}

TEST_F(Snapshot, EverySearchStartsAtOne) {
  device.t_SaveFormat = 2;
  Save();
  Save();
  EXPECT_TRUE(files.FileExists(u"C:\\Tolvane\\KS26010509-002.txt"));
  files.Remove(u"C:\\Tolvane\\KS26010509-001.txt");
  Save();
  EXPECT_TRUE(files.FileExists(u"C:\\Tolvane\\KS26010509-001.txt"));
  memory_.wall_clock.Set({2026, 1, 5, 1, 10, 0, 0});
  Save();
  EXPECT_TRUE(files.FileExists(u"C:\\Tolvane\\KS26010510-001.txt"));
}

TEST_F(Snapshot, TheSearchLetsNoEventIn) {
  device.t_SaveFormat = 2;
  AddSnapshots(20);
  Save();
  EXPECT_EQ(memory_.events.Yields(), 0);
}

TEST_F(Snapshot, Number999IsTheLast) {
  device.t_SaveFormat = 2;
  AddSnapshots(998);
  Save();
  ExpectLastBox(Kind::kPlain, u"保存しました");
  EXPECT_TRUE(files.FileExists(u"C:\\Tolvane\\KS26010509-999.txt"));
  Save();
  ExpectLastBox(Kind::kCritical, u"ファイルがいっぱいです");
  EXPECT_EQ(files.Files(u"C:\\Tolvane").size(), 999U);
}

TEST_F(Snapshot, AnUnknownFormatSavesNothingAndSaysSaved) {
  for (const std::int32_t format : {0, 3}) {
    device.t_SaveFormat = format;
    Save();
    ExpectLastBox(Kind::kPlain, u"保存しました");
    EXPECT_TRUE(files.Files(u"C:\\Tolvane").empty());
  }
}

TEST_F(Snapshot, AFailureIsToldAndNothingClaimsToBeSaved) {
  files.Protect(u"C:\\Tolvane", true);
  for (const std::int32_t format : {1, 2}) {
    device.t_SaveFormat = format;
    Save();
    ExpectLastBox(Kind::kCritical, u"スナップショットを保存できませんでした。");
  }
  EXPECT_EQ(message_box.Boxes().size(), 2U);
}

TEST_F(Snapshot, MissingNamedFolderBecomesTheDesktop) {
  device.t_SaveFormat = 2;
  device.t_SaveFilePath_mode = 2;
  device.t_SaveFilePath = u"E:\\Gone";
  Save();
  EXPECT_EQ(device.t_SaveFilePath, kDesktop);
  EXPECT_TRUE(files.FileExists(String(kDesktop) + u"\\KS26010509-001.txt"));
  EXPECT_NE(device.t_LogSaveFilePath, kDesktop) << "logs have a setting of their own";
}

TEST_F(Snapshot, AnUnknownFolderModeHasNoFolder) {
  device.t_SaveFormat = 2;
  device.t_SaveFilePath_mode = 3;
  Save();
  ExpectLastBox(Kind::kCritical, u"スナップショットを保存できませんでした。");
  const auto& lines = memory_.journal.Lines();
  EXPECT_EQ(std::ranges::count(lines, "RTB_MainView.SaveFile(\"\\KS26010509-001.txt\")"), 1);
}

}  // namespace
}  // namespace tolvane
