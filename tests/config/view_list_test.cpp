#include <gtest/gtest.h>

#include "platform/memory/rich_text/rich_text_view.h"
#include "tests/config/config_test.h"
#include "tests/helpers/rtf_of.h"

namespace tolvane {
namespace {

class ViewList : public ConfigTest {
 protected:
  void SaveList() { FileSaveSystem::SaveViewList(device, files, RTB_MainView); }
  void LoadList() { FileSaveSystem::LoadViewList(device, files, RTB_MainView); }

  static constexpr StringView kListPath = u"C:\\Tolvane\\lglist.dat";
  platform::memory::RichTextView RTB_MainView{journal, files};
};

TEST_F(ViewList, ComesBackWithColoursAndJapaneseText) {
  RTB_MainView.Text(u"000  8 表示\r\nnote");
  RTB_MainView.SelStart(5);
  RTB_MainView.SelLength(4);
  RTB_MainView.SelColor(Rgb(255, 0, 0));
  const auto page = RTB_MainView.Page();
  SaveList();
  EXPECT_TRUE(files.Bytes(kListPath).value_or("").starts_with("{\\rtf1"));
  RTB_MainView.Text(u"");
  LoadList();
  EXPECT_EQ(RTB_MainView.Page().text, page.text);
  EXPECT_EQ(RTB_MainView.Page().colours, page.colours);
}

TEST_F(ViewList, ReplacesTheOldFile) {
  files.AddFile(kListPath, std::string(100'000, 'x'));
  RTB_MainView.Text(u"short");
  SaveList();
  EXPECT_LT(files.Bytes(kListPath).value_or("").size(), 10'000U);
}

TEST_F(ViewList, MissingFileOrFolderLeavesTheViewAsItIs) {
  RTB_MainView.Text(u"as built");
  LoadList();
  EXPECT_EQ(RTB_MainView.Text(), u"as built");
  files.Remove(u"C:\\Tolvane");
  SaveList();
  LoadList();
  EXPECT_FALSE(files.FileExists(kListPath));
  EXPECT_EQ(RTB_MainView.Text(), u"as built");
}

TEST_F(ViewList, WithoutAnExecutableFolderNothingHappens) {
  const ELM327_Info homeless{u""};
  files.AddFile(u"\\lglist.dat", RtfOf(u"x"));
  RTB_MainView.Text(u"as built");
  FileSaveSystem::SaveViewList(homeless, files, RTB_MainView);
  FileSaveSystem::LoadViewList(homeless, files, RTB_MainView);
  EXPECT_EQ(RTB_MainView.Text(), u"as built");
  EXPECT_EQ(files.Bytes(u"\\lglist.dat"), RtfOf(u"x"));
}

TEST_F(ViewList, FailuresKeepTheOldFileAndTheView) {
  RTB_MainView.Text(u"old");
  SaveList();
  const auto before = files.Bytes(kListPath);
  files.Lock(kListPath, true);
  RTB_MainView.Text(u"new");
  SaveList();
  EXPECT_EQ(files.Bytes(kListPath), before);
  LoadList();
  EXPECT_EQ(RTB_MainView.Text(), u"new");
  files.Lock(kListPath, false);
  files.FreeSpace(10);
  SaveList();
  EXPECT_EQ(files.Bytes(kListPath), before) << "a full disk";
  files.FreeSpace(100'000);
  files.FailClose(true);
  SaveList();
  EXPECT_EQ(files.Bytes(kListPath), before) << "a disk that lost the file at its end";
}

TEST_F(ViewList, AFileThatTheViewCannotReadLeavesBoth) {
  RTB_MainView.Text(u"saved");
  SaveList();
  const auto before = files.Bytes(kListPath);
  RTB_MainView.Text(u"as built");
  RTB_MainView.RefuseRichText(true);
  LoadList();
  EXPECT_EQ(RTB_MainView.Text(), u"as built");
  EXPECT_EQ(files.Bytes(kListPath), before);
}

}  // namespace
}  // namespace tolvane
