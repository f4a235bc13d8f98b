// What a run of the program leaves for the next: settings, page and comment.
#include <fstream>

#include "tests/helpers/expect_bytes.h"
#include "tests/window/control_ids.h"
#include "tests/window/log_fixture.h"
#include "tests/window/message_icon.h"
#include "tools/drive/screen_picture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kYellow = RGB(255, 250, 163);

class Restart : public LogRun {
 protected:
  Restart() { PlugIn(kOneCanusb, {L"canusbdrv.dll"}); }

  void Select(int from, int to) const {
    (void)Send(main_.Control(id::RTB_MainView), EM_SETSEL, static_cast<WPARAM>(from), to);
  }
  /// Returns when the item's work is done, so that the next selection does not come in between.
  void Choose(int menu) const {
    (void)Send(main_.Handle(), WM_COMMAND, static_cast<WPARAM>(menu), 0);
  }
  std::size_t Shown(COLORREF colour) const {
    return CountScreenPixels(main_.Control(id::RTB_MainView), colour);
  }
  std::filesystem::path ConfigFile() const { return folder_.Path() / L"config.dat"; }
};

TEST_F(Restart, KeepsThePageWithItsColoursAndTheComment) {
  ASSERT_NO_FATAL_FAILURE(Start());
  const std::wstring page = L"赤い文字 red ｶﾅ①\r\n黄色の印\r\n\r\n終わり";
  main_.Type(id::RTB_MainView, page);
  Select(0, 8);
  Choose(id::menu_View_Text_Red);
  Select(15, 19);
  Choose(id::menu_View_Marker_Yellow);
  Select(0, 0);
  main_.Type(id::TB_LogComment, L"再起動後も残るコメント①");
  ASSERT_TRUE(WaitUntil([&] { return Shown(kRed) > 20 && Shown(kYellow) > 100; }));
  const std::size_t red = Shown(kRed);
  const std::size_t yellow = Shown(kYellow);
  KeepPicture(main_.Handle(), "before");
  End();
  EXPECT_EQ(FileBytes(folder_.Path() / L"lglist.dat").substr(0, 6), "{\\rtf1");

  ASSERT_NO_FATAL_FAILURE(Start());
  EXPECT_EQ(Utf8(main_.Text(id::RTB_MainView)), Utf8(page));
  EXPECT_EQ(Utf8(main_.Text(id::TB_LogComment)), Utf8(L"再起動後も残るコメント①"));
  EXPECT_TRUE(WaitUntil([&] { return Shown(kRed) == red && Shown(kYellow) == yellow; }))
      << Shown(kRed) << " of " << red << ", " << Shown(kYellow) << " of " << yellow;
  KeepPicture(main_.Handle(), "after");
  End();
}

TEST_F(Restart, ALongPageIsShownFromItsEnd) {
  ASSERT_NO_FATAL_FAILURE(Start());
  std::wstring page;
  for (int line = 1; line <= 300; ++line) page += L"line " + std::to_wstring(line) + L"\r\n";
  main_.Type(id::RTB_MainView, page + L"end");
  End();

  ASSERT_NO_FATAL_FAILURE(Start());
  EXPECT_TRUE(main_.Text(id::RTB_MainView).ends_with(L"end"));
  const HWND view = main_.Control(id::RTB_MainView);
  const auto first_line = [view] { return Send(view, EM_GETFIRSTVISIBLELINE, 0, 0).value_or(0); };
  EXPECT_GT(first_line(), 0);
  KeepPicture(main_.Handle(), "end");
  // The user cannot scroll further down.
  const LRESULT shown = first_line();
  (void)Send(view, WM_VSCROLL, SB_BOTTOM, 0);
  EXPECT_EQ(first_line(), shown);
  End();
}

TEST_F(Restart, KeepsTheSettingsOfTheLogAndExtensionDialogs) {
  const ScratchFolder chosen(OwnFolder() / L"保存先-under-test");
  ASSERT_NO_FATAL_FAILURE(Start());
  DrivenWindow dialog = OpenLogSettings();
  for (const int control :
       {id::RB_SV_Format_0, id::RB_SaveFilePath_1, id::RB_Excel_Format_1, id::RB_LogSaveFilePath_2,
        id::CB_LogSave_subFolder, id::CB_Excel_soft_KO}) {
    EXPECT_TRUE(dialog.Click(control)) << control;
  }
  dialog.Type(id::TB_SaveFilePath, L"C:\\無い");
  dialog.Type(id::TB_LogSaveFilePath, chosen.Path().wstring());
  PressOk(dialog);
  dialog = Open(id::menu_opt_function1);
  dialog.Type(id::TB_DisableID_End_6, L"7FF");
  dialog.Type(id::TB_DisableID_Start_6, L"1A0");
  EXPECT_TRUE(dialog.Click(id::CB_DisableID_6));
  dialog.Type(id::TB_MsgMarkerID_7, L"7FE");
  dialog.Type(id::TB_MsgMarkerEndByte_7, L"8");
  dialog.Type(id::TB_MsgMarkerStartByte_7, L"3");
  EXPECT_TRUE(dialog.Click(id::CB_MsgMarker_7));
  EXPECT_TRUE(dialog.Click(id::CB_Save_ID_DisableMode));
  PressOk(dialog);
  End();
  const std::string written = FileBytes(ConfigFile());

  ASSERT_NO_FATAL_FAILURE(Start());
  dialog = OpenLogSettings();
  for (const int control :
       {id::RB_SV_Format_0, id::RB_SaveFilePath_1, id::RB_Excel_Format_1, id::RB_LogSaveFilePath_2,
        id::CB_LogSave_subFolder, id::CB_Excel_soft_KO, id::CB_LogFile_Enable}) {
    EXPECT_TRUE(dialog.Checked(control)) << control;
  }
  EXPECT_EQ(Utf8(dialog.Text(id::TB_SaveFilePath)), Utf8(L"C:\\無い"));
  EXPECT_EQ(Utf8(dialog.Text(id::TB_LogSaveFilePath)), Utf8(chosen.Path().wstring()));
  PressCancel(dialog);
  dialog = Open(id::menu_opt_function1);
  EXPECT_EQ(dialog.Text(id::TB_DisableID_Start_6), L"1A0");
  EXPECT_EQ(dialog.Text(id::TB_DisableID_End_6), L"7FF");
  EXPECT_EQ(dialog.Text(id::TB_MsgMarkerID_7), L"7FE");
  EXPECT_EQ(dialog.Text(id::TB_MsgMarkerStartByte_7), L"3");
  EXPECT_EQ(dialog.Text(id::TB_MsgMarkerEndByte_7), L"8");
  for (const int control : {id::CB_DisableID_6, id::CB_MsgMarker_7, id::CB_Save_ID_DisableMode}) {
    EXPECT_TRUE(dialog.Checked(control)) << control;
  }
  PressCancel(dialog);
  End();
  EXPECT_TRUE(SameBytes(FileBytes(ConfigFile()), written));
}

/// Writes another version, below 128, into a settings file.
void SetVersion(const std::filesystem::path& file, char version) {
  constexpr std::string_view kTitle = "Tolvane Ver1.23";
  constexpr std::string_view kCopyright = "Copyright (C) 2026 Tolvane Project";
  constexpr std::size_t kAhead = 3 * 4;  // three numbers come before the version
  std::string bytes = FileBytes(file);
  bytes.at(2 + kTitle.size() + 2 + kCopyright.size() + kAhead) = version;
  std::ofstream(file, std::ios::binary) << bytes;
}

TEST_F(Restart, OldSettingsAreTakenOverAfterAQuestionOrRefusedAndDeleted) {
  ASSERT_NO_FATAL_FAILURE(Start());
  main_.Type(id::TB_LogComment, L"old");
  End();
  const std::string good = FileBytes(ConfigFile());
  struct Row {
    const char* label;
    char version;
    const wchar_t* shown;  // in the question, null for none
    int answer;
    bool taken_over;
  };
  const Row rows[] = {{"120 is too old to ask", 120, nullptr, 0, false},
                      {"121 and no", 121, L"1.21", IDNO, false},
                      {"122 and no, read-only", 122, L"1.22", IDNO, false},
                      {"122 and yes", 122, L"1.22", IDYES, true},
                      {"124 needs no question", 124, nullptr, 0, true}};
  for (const Row& row : rows) {
    SetFileAttributesW(ConfigFile().c_str(), FILE_ATTRIBUTE_NORMAL);
    std::ofstream(ConfigFile(), std::ios::binary) << good;
    SetVersion(ConfigFile(), row.version);
    if (std::string_view(row.label).ends_with("read-only")) {
      SetFileAttributesW(ConfigFile().c_str(), FILE_ATTRIBUTE_READONLY);
    }
    if (row.shown != nullptr) {
      const auto question = StartToMessage();
      ASSERT_TRUE(question) << row.label;
      EXPECT_EQ(Utf8(question->title), "Tolvane");
      EXPECT_EQ(Utf8(question->text),
                Utf8(L"古いバージョンの設定データを検出しました。データを引き継ぎますか？\r\n"
                     L"ソフトのバージョン：1.23\r\n設定データのバージョン：" +
                     std::wstring(row.shown)));
      EXPECT_TRUE(WaitUntil([&] { return DrivenWindow(question->box).HasFocus(IDNO); }));
      EXPECT_TRUE(WaitUntil([&] { return ShowsIcon(question->box, IDI_QUESTION); }));
      ASSERT_TRUE(Press(*question, row.answer));
      main_ = program_->WaitForMainWindow();
    } else {
      main_ = StartProgram();
    }
    ASSERT_TRUE(WaitUntil([&] { return main_.Enabled(id::Bt_Connect); })) << row.label;
    EXPECT_EQ(Utf8(main_.Text(id::TB_LogComment)), row.taken_over ? "old" : Utf8(L"ＣＡＮ受信ログ"))
        << row.label;
    EXPECT_EQ(std::filesystem::exists(ConfigFile()), row.taken_over) << row.label;
    End();
    EXPECT_TRUE(std::filesystem::exists(ConfigFile())) << row.label;
  }
}

}  // namespace
}  // namespace tolvane::window
