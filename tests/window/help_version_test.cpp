// The help window and the version window.
#include <array>
#include <filesystem>
#include <fstream>

#include "tests/window/control_ids.h"
#include "tests/window/log_fixture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

class Help : public OpenedWindows {};
class Version : public OpenedWindows {};

TEST_F(Help, EachDialogShowsItsTextOnTopInTheCornerAndTakesItAlong) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  const struct {
    int menu;
    const wchar_t* first_line;
    const wchar_t* last_heading;
  } topics[] = {
      {id::menu_common_setting, L"- 共通設定 -\r\n", L"\r\n(8) タイマー\r\n"},
      {id::menu_opt_function1, L"- 拡張機能１ -\r\n", L"\r\n(3) マーカー設定\r\n"},
      {id::menu_opt_log1, L"- ログ機能 -\r\n", L"\r\n(7) コメントをサブフォルダにして保存する\r\n"},
  };
  for (const auto& topic : topics) {
    const DrivenWindow dialog = Open(topic.menu);
    DrivenWindow help = ShowHelp(dialog);
    ASSERT_TRUE(help.Exists());
    const std::wstring text = help.Text(id::TB_View);
    EXPECT_TRUE(text.starts_with(topic.first_line)) << Utf8(text.substr(0, 60));
    EXPECT_NE(text.find(topic.last_heading), std::wstring::npos);
    EXPECT_TRUE(help.ReadOnly(id::TB_View));
    EXPECT_EQ(Utf8(help.Text()), Utf8(L"Tolvane Ver1.23　　ヘルプ"));
    EXPECT_EQ(help.Text(id::Bt_Close), L"OK");
    EXPECT_NE(GetWindowLongPtrW(help.Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    RECT place{};
    GetWindowRect(help.Handle(), &place);
    EXPECT_EQ(place.left, 0);
    EXPECT_EQ(place.top, 0);
    KeepPicture(help.Handle(), std::to_string(topic.menu));

    ShowHelp(dialog);
    EXPECT_EQ(TopWindows(kHelpClass, program_->Id()).size(), 1u);
    EXPECT_EQ(help.Text(id::TB_View), text);

    EXPECT_TRUE(help.Click(id::Bt_Close));
    EXPECT_TRUE(WaitUntil([&] { return !IsWindowVisible(help.Handle()); }));
    EXPECT_TRUE(dialog.Exists());
    ShowHelp(dialog);
    PressOk(dialog);
    EXPECT_FALSE(IsWindowVisible(help.Handle()));
  }
  End();
}

TEST_F(Version, MayBeOpenDuringARunAndIsClosedByItsPictureOrALabel) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  DrivenWindow version = Open(id::menu_help_version, kVersionClass);
  ASSERT_TRUE(version.Exists());
  EXPECT_TRUE(IsWindowEnabled(main_.Handle()));
  EXPECT_EQ(GetWindowLongPtrW(version.Handle(), GWL_STYLE) & WS_DLGFRAME, 0);
  EXPECT_EQ(version.Text(), L"Tolvane Ver1.23");
  EXPECT_EQ(version.Text(id::Lb_App_Title), L"Tolvane Ver1.23");
  EXPECT_EQ(version.Text(id::Lb_copylight), L"Copyright (C) 2026 Tolvane Project");
  EXPECT_EQ(version.Text(id::Lb_URL), L"https://tolvane.example/");
  EXPECT_EQ(version.Text(id::Lb_OK), L"OK");
  EXPECT_TRUE(version.Visible(id::Shape1));
  KeepPicture(version.Handle(), "window");

  for (const int control : {id::Img_OK, id::Lb_OK}) {
    version.ClickMouse(control);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindowVisible(version.Handle()); })) << control;
    EXPECT_TRUE(version.Exists()) << "it stays loaded";
    EXPECT_EQ(Open(id::menu_help_version, kVersionClass).Handle(), version.Handle());
  }
  version.PressKey(id::Lb_OK, VK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindowVisible(version.Handle()); }));
  Open(id::menu_help_version, kVersionClass);
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  End();
}

bool IsBeingMoved(const DrivenWindow& window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  const DWORD thread = GetWindowThreadProcessId(window.Handle(), nullptr);
  return GetGUIThreadInfo(thread, &info) && (info.flags & GUI_INMOVESIZE) != 0;
}

TEST_F(Version, AMovementWithTheButtonDownOverItsFaceMovesItAndIsNoClick) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  const DrivenWindow version = Open(id::menu_help_version, kVersionClass);
  ASSERT_TRUE(version.Exists());
  const HWND parts[] = {version.Handle(), version.Control(id::Lb_App_Title),
                        version.Control(id::Lb_copylight), version.Control(id::Lb_OK),
                        version.Control(id::Img_OK)};
  for (const HWND part : parts) {
    (void)Send(part, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 3));
    // A movement that is none: the press can still become a click.
    (void)Send(part, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(2, 3));
    EXPECT_FALSE(IsBeingMoved(version));
    PostMessageW(part, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(2, 4));
    EXPECT_TRUE(WaitUntil([&] { return IsBeingMoved(version); })) << GetDlgCtrlID(part);
    PostMessageW(part, WM_LBUTTONUP, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsBeingMoved(version); }));
    EXPECT_TRUE(IsWindowVisible(version.Handle()));
  }
  version.ClickMouse(id::Img_OK);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindowVisible(version.Handle()); }));
  End();
}

TEST_F(Version, TheMouseIsAHandOverTheLinksAlone) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  const DrivenWindow version = Open(id::menu_help_version, kVersionClass);
  ASSERT_TRUE(version.Exists());
  const ProgramProbe probe(OwnFolder() / L"tolvane_probe.dll", version.Handle());
  for (const int control : {id::PicURL, id::Lb_URL})
    EXPECT_EQ(probe.HandOver(control), true) << control;
  for (const int control :
       {id::Lb_App_Title, id::Lb_copylight, id::Lb_OK, id::Img_OK, id::Shape1}) {
    EXPECT_EQ(probe.HandOver(control), false) << control;
  }
  End();
}

/// Has what is of a class, such as addresses of the web, opened by another command while the object
/// lives.
class OpenedBy {
 public:
  OpenedBy(const std::wstring& file_class, const std::wstring& command)
      : key_(file_class + L"\\shell\\open\\command") {
    DWORD size = sizeof(before_);
    ready_ = RegGetValueW(HKEY_CLASSES_ROOT, key_.c_str(), nullptr, RRF_RT_REG_SZ, nullptr,
                          before_.data(), &size) == ERROR_SUCCESS &&
             Store(command);
  }
  ~OpenedBy() {
    if (ready_) Store(before_.data());
  }
  OpenedBy(const OpenedBy&) = delete;
  OpenedBy& operator=(const OpenedBy&) = delete;
  [[nodiscard]] bool Ready() const { return ready_; }

 private:
  bool Store(const std::wstring& command) const {
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, key_.c_str(), nullptr, REG_SZ, command.c_str(),
                           static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t))) ==
           ERROR_SUCCESS;
  }

  std::wstring key_;
  std::array<wchar_t, 512> before_{};
  bool ready_ = false;
};

TEST_F(Version, APressOnTheAddressAndAClickOnItsPictureOpenTheHomePage) {
  if (!OnWine()) GTEST_SKIP() << "would open the user's browser";
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const std::filesystem::path opened = folder_.Path() / L"opened.txt";
  const OpenedBy file(L"https", L"cmd.exe /c echo %1>>\"" + opened.wstring() + L"\"");
  ASSERT_TRUE(file.Ready());
  ASSERT_NO_FATAL_FAILURE(Start());
  const DrivenWindow version = Open(id::menu_help_version, kVersionClass);
  ASSERT_TRUE(version.Exists());
  const std::string line = "https://tolvane.example/\r\n";
  // The picture needs press and release, the text only the press.
  PostMessageW(version.Control(id::PicURL), WM_LBUTTONDOWN, MK_LBUTTON, 0);
  PostMessageW(version.Control(id::Lb_URL), WM_LBUTTONDOWN, MK_LBUTTON, 0);
  EXPECT_TRUE(WaitUntil([&] { return FileBytes(opened) == line; })) << FileBytes(opened);
  version.ClickMouse(id::PicURL);
  EXPECT_TRUE(WaitUntil([&] { return FileBytes(opened) == line + line; })) << FileBytes(opened);
  EXPECT_TRUE(IsWindowVisible(version.Handle()));
  End();
}

/// Gives web pages in files a class while the object lives: Wine keeps no program for them.
class PagesHaveAClass {
 public:
  PagesHaveAClass() {
    constexpr wchar_t kClass[] = L"htmlfile";
    RegSetKeyValueW(HKEY_CLASSES_ROOT, kExtension, nullptr, REG_SZ, kClass, sizeof(kClass));
  }
  ~PagesHaveAClass() { RegDeleteKeyW(HKEY_CLASSES_ROOT, kExtension); }
  PagesHaveAClass(const PagesHaveAClass&) = delete;
  PagesHaveAClass& operator=(const PagesHaveAClass&) = delete;

 private:
  static constexpr const wchar_t* kExtension = L".html";
};

TEST_F(Help, F1ShowsTheManualBesideTheProgramAtItsHeading) {
  if (!OnWine()) GTEST_SKIP() << "would open the user's browser";
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const std::filesystem::path opened = folder_.Path() / L"opened.txt";
  const std::filesystem::path browser = folder_.Path() / L"browser.cmd";
  std::ofstream(browser, std::ios::binary) << "@echo %1>>\"" << opened.string() << "\"\r\n";
  const PagesHaveAClass pages;
  const OpenedBy by_browser(L"htmlfile", L"\"" + browser.wstring() + L"\" \"%1\"");
  ASSERT_TRUE(by_browser.Ready());
  ASSERT_NO_FATAL_FAILURE(Start());
  main_.PressKey(id::Bt_Connect, VK_F1);
  // Without a manual nothing happens.
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  EXPECT_EQ(FileBytes(opened), "");
  std::ofstream(folder_.Path() / L"manual.html") << "<html></html>";
  main_.PressKey(id::TB_Status, VK_F1);
  EXPECT_TRUE(WaitUntil([&] {
    return FileBytes(opened).find("/program-under-test/manual.html#3-") != std::string::npos;
  })) << FileBytes(opened);
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  main_.PressKey(id::TB_Status, VK_F1);
  EXPECT_TRUE(WaitUntil([&] {
    return FileBytes(opened).find("/program-under-test/manual.html#2-") != std::string::npos;
  })) << FileBytes(opened);
  End();
}

}  // namespace
}  // namespace tolvane::window
