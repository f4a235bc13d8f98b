// The log settings in the real window.
#include "tests/window/control_ids.h"
#include "tests/window/dialog_fixture.h"

#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

using OptionLog1 = OpenedWindows;

constexpr int kFollowTheLogBox[] = {id::GB_LogSave_Format,    id::RB_LogSV_Format_1,
                                    id::GB_Excel_Format,      id::RB_Excel_Format_0,
                                    id::RB_Excel_Format_1,    id::GB_LogSave_path,
                                    id::RB_LogSaveFilePath_0, id::RB_LogSaveFilePath_1,
                                    id::RB_LogSaveFilePath_2, id::TB_LogSaveFilePath};
constexpr int kFollowItsClicksAlone[] = {id::CB_LogSave_subFolder, id::CB_Excel_soft_KO};

TEST_F(OptionLog1, ControlsFollowTheLogBoxAndTwoOfThemItsClicksAlone) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  DrivenWindow dialog = Open(id::menu_opt_log1);
  ASSERT_TRUE(dialog.Exists());
  EXPECT_EQ(Utf8(dialog.Text()), Utf8(L"Tolvane Ver1.23　　- ログ機能 -"));
  EXPECT_TRUE(dialog.Checked(id::CB_LogFile_Enable));
  for (const int control : kFollowTheLogBox) EXPECT_TRUE(dialog.Enabled(control)) << control;
  // No office software is on the test machine.
  EXPECT_FALSE(dialog.Enabled(id::RB_LogSV_Format_0));
  EXPECT_TRUE(dialog.Checked(id::RB_LogSV_Format_1));
  for (const int control : {id::TB_Excel_Status, id::TB_Excel_Status2, id::TB_Access_Status}) {
    EXPECT_EQ(dialog.Text(control), L" NG");
    EXPECT_TRUE(Shows(dialog, control, RGB(255, 0, 0), 5)) << control;
  }
  EXPECT_EQ(dialog.Text(id::TB_Excel_Ver), L"---");
  EXPECT_EQ(dialog.Text(id::TB_Access_Ver), L"---");
  for (const int control : {id::RB_LogSV_Format_2, id::RB_LogSV_Format_3}) {
    EXPECT_EQ(Utf8(dialog.Text(control)), Utf8(L"Access形式で保存 （.mdb）"));
    EXPECT_FALSE(dialog.Visible(control));
    EXPECT_FALSE(dialog.Enabled(control));
  }
  KeepPicture(dialog.Handle(), "window");

  EXPECT_TRUE(dialog.Click(id::CB_LogFile_Enable));
  for (const int control : kFollowTheLogBox) EXPECT_FALSE(dialog.Enabled(control)) << control;
  for (const int control : kFollowItsClicksAlone) EXPECT_FALSE(dialog.Enabled(control)) << control;
  PressOk(dialog);

  dialog = Open(id::menu_opt_log1);
  EXPECT_FALSE(dialog.Checked(id::CB_LogFile_Enable));
  for (const int control : kFollowTheLogBox) EXPECT_FALSE(dialog.Enabled(control)) << control;
  for (const int control : kFollowItsClicksAlone) EXPECT_TRUE(dialog.Enabled(control)) << control;
  EXPECT_TRUE(dialog.Click(id::CB_LogFile_Enable));
  for (const int control : kFollowTheLogBox) EXPECT_TRUE(dialog.Enabled(control)) << control;
  EXPECT_FALSE(dialog.Enabled(id::RB_LogSV_Format_0));
  PressCancel(dialog);
  End();
}

TEST_F(OptionLog1, ADroppedFolderFillsTheBoxOfItsSide) {
  const std::filesystem::path target = folder_.Path() / L"ログの保存先";
  std::filesystem::create_directories(target);
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  DrivenWindow dialog = Open(id::menu_opt_log1);
  const ProgramProbe probe(OwnFolder() / L"tolvane_probe.dll", dialog.Handle());
  const struct {
    int control;
    int box;
  } targets[] = {{id::Img_save_folder, id::TB_SaveFilePath},
                 {id::Img_save_folder_path, id::TB_SaveFilePath},
                 {id::TB_SaveFilePath, id::TB_SaveFilePath},
                 {id::Img_Log_save_folder, id::TB_LogSaveFilePath},
                 {id::Img_Log_save_folder_path, id::TB_LogSaveFilePath},
                 {id::TB_LogSaveFilePath, id::TB_LogSaveFilePath}};
  for (const auto& row : targets) {
    EXPECT_NE(GetWindowLongPtrW(dialog.Control(row.control), GWL_EXSTYLE) & WS_EX_ACCEPTFILES, 0);
    const int other = row.box == id::TB_SaveFilePath ? id::TB_LogSaveFilePath : id::TB_SaveFilePath;
    dialog.Type(row.box, L"before");
    const std::wstring beside = dialog.Text(other);
    ASSERT_TRUE(probe.Drop(dialog.Control(row.control), target.wstring()));
    EXPECT_TRUE(WaitUntil([&] { return dialog.Text(row.box) == target.wstring(); }))
        << row.control << " " << Utf8(dialog.Text(row.box));
    EXPECT_EQ(dialog.Text(other), beside);
  }
  EXPECT_TRUE(dialog.Click(id::RB_LogSaveFilePath_2));
  PressOk(dialog);
  dialog = Open(id::menu_opt_log1);
  EXPECT_EQ(Utf8(dialog.Text(id::TB_LogSaveFilePath)), Utf8(target.wstring()));
  EXPECT_TRUE(dialog.Checked(id::RB_LogSaveFilePath_2));
  PressCancel(dialog);
  End();
}

constexpr int kChooserName = 1152;  // the box for a name in the system's dialog

class FolderChooser : public OptionLog1 {
 protected:
  /// The system's dialog once it lists the folders, which is when it takes a command.
  [[nodiscard]] DrivenWindow WaitForChooser() const {
    (void)WaitUntil([this] {
      const HWND chooser = Find(L"#32770").Handle();
      const HWND browser = FindWindowExW(chooser, nullptr, L"ExplorerBrowserControl", nullptr);
      const HWND view = FindWindowExW(browser, nullptr, L"SHELLDLL_DefView", nullptr);
      return chooser != nullptr && FindWindowExW(view, nullptr, nullptr, nullptr) != nullptr;
    });
    return Find(L"#32770");
  }
};

TEST_F(FolderChooser, AFolderPictureOpensItAndItFillsTheBoxOfItsSide) {
  if (!OnWine()) GTEST_SKIP() << "the system's dialog has other windows in it there";
  const std::filesystem::path target = folder_.Path() / L"選んだ保存先";
  std::filesystem::create_directories(target);
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  const DrivenWindow dialog = Open(id::menu_opt_log1);
  const struct {
    int picture;
    int box;
    bool by_keyboard;
  } rows[] = {{id::Img_save_folder, id::TB_SaveFilePath, false},
              {id::Img_save_folder_path, id::TB_SaveFilePath, true},
              {id::Img_Log_save_folder, id::TB_LogSaveFilePath, true},
              {id::Img_Log_save_folder_path, id::TB_LogSaveFilePath, false}};
  for (const auto& row : rows) {
    for (const WPARAM answer : {IDCANCEL, IDOK}) {
      dialog.Type(row.box, L"before");
      if (row.by_keyboard) {
        dialog.PressKey(row.picture, VK_SPACE);
      } else {
        dialog.ClickMouse(row.picture);
      }
      const DrivenWindow chooser = WaitForChooser();
      ASSERT_TRUE(chooser.Exists()) << row.picture;
      EXPECT_EQ(GetWindow(chooser.Handle(), GW_OWNER), dialog.Handle());
      chooser.Type(kChooserName, target.wstring());
      PostMessageW(chooser.Handle(), WM_COMMAND, answer, 0);
      ASSERT_TRUE(WaitUntil([&] { return !chooser.Exists() && IsWindowEnabled(dialog.Handle()); }));
      const std::wstring expected = answer == IDOK ? target.wstring() : L"before";
      EXPECT_TRUE(WaitUntil([&] { return dialog.Text(row.box) == expected; }))
          << row.picture << " " << Utf8(dialog.Text(row.box));
    }
  }
  PressCancel(dialog);
  End();
}

}  // namespace
}  // namespace tolvane::window
