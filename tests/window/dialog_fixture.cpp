#include "tests/window/dialog_fixture.h"

#include "tests/window/control_ids.h"
#include "tools/drive/screen_picture.h"

namespace tolvane::window {

std::vector<std::wstring> BadNumbers() {
  return {L"",
          L"abc",
          L"-1",
          L"0",
          L"99999999999",
          L"1E5",
          L"0x10",
          L"６０",
          L"😀",
          L"1,000",
          L"10 0",
          std::wstring(40, L'9'),
          std::wstring(20000, L'1')};
}

bool Shows(const DrivenWindow& dialog, int control, COLORREF colour, std::size_t pixels) {
  return WaitUntil([&] { return CountScreenPixels(dialog.Control(control), colour) >= pixels; });
}

bool OnWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

void OpenedWindows::Start() {
  main_ = StartProgram();
  ASSERT_TRUE(main_.Exists());
  ASSERT_TRUE(WaitUntil([&] { return main_.Enabled(id::Bt_Connect); }));
}

void OpenedWindows::End() {
  main_.Close();
  EXPECT_EQ(program_->WaitForEnd(), 0u);
}

DrivenWindow OpenedWindows::Find(const wchar_t* window_class) const {
  return DrivenWindow(FindTopWindow(window_class, program_->Id()));
}

DrivenWindow OpenedWindows::Open(int menu, const wchar_t* window_class) {
  main_.Command(menu);
  EXPECT_TRUE(WaitUntil([&] { return Find(window_class).Exists(); }));
  return Find(window_class);
}

bool OpenedWindows::Closed(const DrivenWindow& dialog) const {
  return WaitUntil([&] { return !dialog.Exists() && IsWindowEnabled(main_.Handle()); });
}

void OpenedWindows::PressOk(const DrivenWindow& dialog) const {
  EXPECT_TRUE(dialog.Click(id::Bt_OK));
  EXPECT_TRUE(Closed(dialog));
}

void OpenedWindows::PressCancel(const DrivenWindow& dialog) const {
  EXPECT_TRUE(dialog.Click(id::Bt_Cancell));
  EXPECT_TRUE(Closed(dialog));
}

void OpenedWindows::AnswerColourDialog(const DrivenWindow& dialog, int control,
                                       WPARAM answer) const {
  // As the button does, but without waiting for the end of the modal dialog.
  dialog.Command(control);
  EXPECT_TRUE(WaitUntil([&] { return Find(L"#32770").Exists(); }));
  const DrivenWindow colours = Find(L"#32770");
  EXPECT_EQ(GetWindow(colours.Handle(), GW_OWNER), dialog.Handle());
  PostMessageW(colours.Handle(), WM_COMMAND, answer, 0);
  EXPECT_TRUE(WaitUntil([&] { return !colours.Exists() && IsWindowEnabled(dialog.Handle()); }));
}

DrivenWindow OpenedWindows::ShowHelp(const DrivenWindow& dialog) const {
  dialog.ClickMouse(id::Img_Help_Setting);
  EXPECT_TRUE(WaitUntil([&] { return !Find(kHelpClass).Text(id::TB_View).empty(); }));
  return Find(kHelpClass);
}

}  // namespace tolvane::window
