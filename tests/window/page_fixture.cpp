#include "tests/window/page_fixture.h"

#include "tests/window/control_ids.h"
#include "tests/window/system_clipboard.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

constexpr const wchar_t* kPopUpClass = L"#32768";
constexpr int kAllItems[] = {
    id::menu_View_All_Copy,     id::menu_View_Ctrl_Z,        id::menu_View_Ctrl_X,
    id::menu_View_Ctrl_C,       id::menu_View_Ctrl_V,        id::menu_View_DEL,
    id::menu_View_Text_Red,     id::menu_View_Text_Blue,     id::menu_View_Text_Black,
    id::menu_View_Marker_Pink,  id::menu_View_Marker_Yellow, id::menu_View_Marker_black,
    id::menu_View_Marker_white, id::menu_View_Date};

}  // namespace

void PageCommandsBase::StartWith(const std::wstring& page) {
  StartOnRecording("");
  WriteOver(page);
}

void PageCommandsBase::WriteOver(const std::wstring& page) const {
  main_.Type(id::RTB_MainView, page);
}

std::wstring PageCommandsBase::Page() const { return main_.Text(id::RTB_MainView); }

void PageCommandsBase::Select(int start, int end) const {
  (void)Send(main_.Control(id::RTB_MainView), EM_SETSEL, static_cast<WPARAM>(start), end);
}

void PageCommandsBase::SetCaret(int position) const {
  Select(0, 1);
  Select(position, position);
}

void PageCommandsBase::Do(int command) const {
  (void)Send(main_.Handle(), WM_COMMAND, static_cast<WPARAM>(command), 0);
  // A turn of its loop: a change of the selection waits for one, and the menu's items follow it.
  EXPECT_TRUE(main_.AwaitPosted(id::TB_Protocol));
}

HWND PageCommandsBase::PopUp() const { return FindTopWindow(kPopUpClass, program_->Id()); }

PageCommandsBase::Items PageCommandsBase::EnabledItems() const {
  const ProgramProbe probe(OwnFolder() / L"tolvane_probe.dll", main_.Handle());
  Items enabled;
  for (const int item : kAllItems) {
    const std::optional<bool> state = probe.Enabled(item);
    EXPECT_TRUE(state.has_value()) << item;
    if (state == true) enabled.push_back(item);
  }
  return enabled;
}

PageCommandsBase::Items PageCommandsBase::OpenPopUp(HWND target, UINT message,
                                                    LPARAM lparam) const {
  PostMessageW(target, message, 0, lparam);
  EXPECT_TRUE(WaitUntil([&] { return PopUp() != nullptr; }));
  const Items enabled = EnabledItems();
  ClosePopUp();
  return enabled;
}

void PageCommandsBase::ClosePopUp() const {
  // A menu that has its window but does not listen yet misses it.
  EXPECT_TRUE(WaitUntil([&] {
    (void)Send(main_.Handle(), WM_CANCELMODE, 0, 0);
    return PopUp() == nullptr;
  }));
}

PageCommandsBase::Items PageCommandsBase::OpenPopUp() const {
  return OpenPopUp(main_.Control(id::RTB_MainView));
}

void PageCommandsBase::ExpectCopied(int command, const std::wstring& text) const {
  Do(command);
  const HeldClipboard held;
  EXPECT_EQ(Utf8(held.Plain()), Utf8(text));
  EXPECT_FALSE(held.Rich().empty());
}

}  // namespace tolvane::window
