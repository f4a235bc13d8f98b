#include "tools/drive/driven_window.h"

#include <array>
#include <string_view>

namespace tolvane::window {
namespace {

constexpr UINT kAnswerLimit = 30000;  // ms
constexpr DWORD kPollPause = 20;      // ms

/// Calls `visit` for each window that an enumeration brings, until it returns false.
template <typename Visitor>
BOOL CALLBACK VisitWindow(HWND window, LPARAM visitor) {
  return (*reinterpret_cast<Visitor*>(visitor))(window) ? TRUE : FALSE;
}

}  // namespace

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return {name.data(), static_cast<std::size_t>(length)};
}

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    Sleep(kPollPause);
  }
  return true;
}

std::vector<HWND> TopWindows(const wchar_t* window_class, DWORD process) {
  std::vector<HWND> found;
  auto visit = [&](HWND window) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if ((process == 0 || owner == process) && IsWindowVisible(window) &&
        ClassOf(window) == window_class) {
      found.push_back(window);
    }
    return true;
  };
  EnumWindows(VisitWindow<decltype(visit)>, reinterpret_cast<LPARAM>(&visit));
  return found;
}

HWND FindTopWindow(const wchar_t* window_class, DWORD process) {
  const std::vector<HWND> found = TopWindows(window_class, process);
  return found.empty() ? nullptr : found.front();
}

std::optional<LRESULT> Send(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  DWORD_PTR result = 0;
  if (!SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, kAnswerLimit, &result)) {
    return std::nullopt;
  }
  return static_cast<LRESULT>(result);
}

std::wstring TextOf(HWND window) {
  const LRESULT length = Send(window, WM_GETTEXTLENGTH, 0, 0).value_or(0);
  // The text may grow between the two questions, and the length may be told too high.
  std::wstring text(static_cast<std::size_t>(length) + 4096, L'\0');
  const LRESULT copied =
      Send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())).value_or(0);
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

HWND DrivenWindow::Control(int control) const {
  HWND found = nullptr;
  auto visit = [&](HWND window) {
    if (GetDlgCtrlID(window) == control) found = window;
    return found == nullptr;
  };
  EnumChildWindows(window_, VisitWindow<decltype(visit)>, reinterpret_cast<LPARAM>(&visit));
  return found;
}

std::wstring DrivenWindow::Text() const { return TextOf(window_); }

std::wstring DrivenWindow::Text(int control) const { return TextOf(Control(control)); }

bool DrivenWindow::Enabled(int control) const { return IsWindowEnabled(Control(control)) != FALSE; }

bool DrivenWindow::Visible(int control) const { return IsWindowVisible(Control(control)) != FALSE; }

bool DrivenWindow::ReadOnly(int control) const {
  return (GetWindowLongPtrW(Control(control), GWL_STYLE) & ES_READONLY) != 0;
}

bool DrivenWindow::HasFocus(int control) const {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  const DWORD thread = GetWindowThreadProcessId(window_, nullptr);
  return GetGUIThreadInfo(thread, &info) && info.hwndFocus != nullptr &&
         info.hwndFocus == Control(control);
}

std::vector<std::wstring> DrivenWindow::ListLines(int control) const {
  const HWND list = Control(control);
  const LRESULT count = Send(list, CB_GETCOUNT, 0, 0).value_or(0);
  std::vector<std::wstring> lines;
  for (LRESULT i = 0; i < count; ++i) {
    std::array<wchar_t, 512> line{};
    const LRESULT length =
        Send(list, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(line.data()))
            .value_or(0);
    lines.emplace_back(line.data(), static_cast<std::size_t>(length < 0 ? 0 : length));
  }
  return lines;
}

int DrivenWindow::SelectedLine(int control) const {
  return static_cast<int>(Send(Control(control), CB_GETCURSEL, 0, 0).value_or(-1));
}

bool DrivenWindow::Click(int control) const {
  const HWND button = Control(control);
  return button != nullptr && IsWindowEnabled(button) && Send(button, BM_CLICK, 0, 0).has_value();
}

bool DrivenWindow::Checked(int control) const {
  return Send(Control(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void DrivenWindow::ClickMouse(int control) const {
  RECT client{};
  GetClientRect(Control(control), &client);
  const LPARAM middle = MAKELPARAM(client.right / 2, client.bottom / 2);
  PostMessageW(Control(control), WM_LBUTTONDOWN, MK_LBUTTON, middle);
  PostMessageW(Control(control), WM_LBUTTONUP, 0, middle);
}

void DrivenWindow::PressKey(int control, WPARAM key) const {
  PostMessageW(Control(control), WM_KEYDOWN, key, 1);
  PostMessageW(Control(control), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void DrivenWindow::SelectLine(int control, int line) const {
  const HWND list = Control(control);
  (void)Send(list, CB_SETCURSEL, static_cast<WPARAM>(line), 0);
  (void)Send(GetParent(list), WM_COMMAND, MAKEWPARAM(control, CBN_SELCHANGE),
             reinterpret_cast<LPARAM>(list));
}

void DrivenWindow::Command(int control) const {
  PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(control), 0);
}

void DrivenWindow::Type(int control, const std::wstring& text) const {
  const HWND edit = Control(control);
  (void)Send(edit, EM_SETSEL, 0, -1);
  (void)Send(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

bool DrivenWindow::AwaitPosted(int edit) const {
  const auto selection = [&] { return Send(Control(edit), EM_GETSEL, 0, 0); };
  const int end = selection() == MAKELRESULT(0, 1) ? 2 : 1;
  PostMessageW(Control(edit), EM_SETSEL, 0, end);
  return WaitUntil([&] { return selection() == MAKELRESULT(0, end); });
}

void DrivenWindow::Close() const { PostMessageW(window_, WM_CLOSE, 0, 0); }

}  // namespace tolvane::window
