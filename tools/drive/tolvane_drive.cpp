// tolvane_drive: drives a running Tolvane.exe from a script, one command at a time.
//
// clang-format off
//   wait-window            until the main window stands; ends with 3 when a message box came instead
//   window CLASS           until a window of this class stands; the commands behind it act on that one
//   command ID             chooses a menu item
//   click ID               presses a button
//   press ID               the same by the mouse, for pictures and for what stays open; does not wait
//   wait-enabled ID        until a control is enabled
//   wait-text ID TEXT      until a control's text begins with TEXT
//   wait-same ID SECONDS   until a control's text has not changed for so long
//   follow ID WORD SECONDS FILE
//                          for so long, each new form of the control's line that begins with the word; ahead of it
//                          the time in µs since 1970
//   text ID [FILE]         a control's text, UTF-8, LF line ends
//   picture FILE           what the screen shows of the window, as a bitmap file
//   close                  closes the window and waits until it has gone
// clang-format on
//
// ID is a number or the symbol of resource.h; several commands may follow each other, separated by
// "--". The first that fails ends the program with 1.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "tools/drive/control_ids.h"
#include "tools/drive/driven_program.h"
#include "tools/drive/message_box.h"
#include "tools/drive/screen_picture.h"
#include "tools/drive/text.h"
#include "tools/drive/what_runs.h"

namespace tolvane::window {
namespace {

using Arguments = std::vector<std::wstring>;

constexpr int kFailed = 1;
constexpr int kUsage = 2;
constexpr int kMessageInstead = 3;
/// A start under Wine on a busy machine, where it runs at the lowest priority.
constexpr std::chrono::seconds kStartLimit{180};

int Complain(const std::wstring& what) {
  std::fprintf(stderr, "tolvane_drive: %s\n", Utf8(what).c_str());
  return kFailed;
}

std::wstring& WindowClass() {
  static std::wstring window_class = kMainWindowClass;
  return window_class;
}

DrivenWindow Window() { return DrivenWindow(FindTopWindow(WindowClass().c_str())); }

int ChooseWindow(const Arguments& arguments) {
  WindowClass() = arguments[1];
  return WaitUntil([] { return Window().Exists(); }) ? 0 : Complain(L"no window " + arguments[1]);
}

int ChooseCommand(const Arguments& arguments) {
  Window().Command(ControlId(arguments[1]));
  return 0;
}

int WaitWindow(const Arguments&) {
  std::optional<ShownMessage> message;
  const bool came = WaitUntil(
      [&] {
        message = FindMessage(0);
        return message || Window().Exists();
      },
      kStartLimit);
  if (message) {
    Complain(message->title + L": " + message->text);
    return kMessageInstead;
  }
  return came ? 0 : Complain(L"no main window came; these run:\n" + WhatRuns());
}

int Click(const Arguments& arguments) {
  return Window().Click(ControlId(arguments[1]))
             ? 0
             : Complain(arguments[1] + L" is absent or disabled, or does not answer");
}

int Press(const Arguments& arguments) {
  Window().ClickMouse(ControlId(arguments[1]));
  return 0;
}

int WaitEnabled(const Arguments& arguments) {
  const int control = ControlId(arguments[1]);
  return WaitUntil([&] { return Window().Enabled(control); })
             ? 0
             : Complain(arguments[1] + L" stays disabled");
}

int WaitText(const Arguments& arguments) {
  const int control = ControlId(arguments[1]);
  return WaitUntil([&] { return Window().Text(control).starts_with(arguments[2]); })
             ? 0
             : Complain(arguments[1] + L" shows \"" + Window().Text(control) + L"\"");
}

int WaitSame(const Arguments& arguments) {
  const int control = ControlId(arguments[1]);
  const DWORD still = static_cast<DWORD>(std::wcstoul(arguments[2].c_str(), nullptr, 10)) * 1000;
  std::wstring last = Window().Text(control);
  for (DWORD since = GetTickCount(); GetTickCount() - since < still;) {
    Sleep(200);
    std::wstring text = Window().Text(control);
    if (text != last) since = GetTickCount();
    last = std::move(text);
    if (!Window().Exists()) return Complain(L"the main window has gone");
  }
  return 0;
}

/// The control's line that begins with the word, empty when there is none.
std::wstring LineOf(const std::wstring& text, const std::wstring& word) {
  std::size_t at = text.starts_with(word) ? 0 : text.find(L"\n" + word);
  if (at == std::wstring::npos) return {};
  at = text.find_first_not_of(L'\n', at);
  return text.substr(at, text.find_first_of(L"\r\n", at) - at);
}

int Follow(const Arguments& arguments) {
  using std::chrono::system_clock;
  const int control = ControlId(arguments[1]);
  const auto end =
      system_clock::now() + std::chrono::seconds(std::wcstoul(arguments[3].c_str(), nullptr, 10));
  std::ofstream file(std::filesystem::path(arguments[4]), std::ios::binary);
  std::wstring last;
  while (system_clock::now() < end) {
    std::wstring line = LineOf(Window().Text(control), arguments[2]);
    const auto now = std::chrono::duration_cast<std::chrono::microseconds>(
        system_clock::now().time_since_epoch());
    if (line != last && !line.empty()) file << now.count() << ' ' << Utf8(line) << '\n';
    last = std::move(line);
    Sleep(1);
  }
  file.close();
  return file.fail() ? Complain(arguments[4] + L" cannot be written") : 0;
}

int Text(const Arguments& arguments) {
  std::string text = Utf8(Window().Text(ControlId(arguments[1])));
  std::erase(text, '\r');
  if (arguments.size() < 3) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    return 0;
  }
  std::ofstream file(std::filesystem::path(arguments[2]), std::ios::binary);
  file << text;
  file.close();
  return file.fail() ? Complain(arguments[2] + L" cannot be written") : 0;
}

int Picture(const Arguments& arguments) {
  // A page in a run may never stand still.
  (void)AwaitPainted(Window().Handle());
  return SaveScreenPicture(Window().Handle(), arguments[1])
             ? 0
             : Complain(arguments[1] + L" cannot be taken");
}

int Close(const Arguments&) {
  const DrivenWindow window = Window();
  window.Close();
  return WaitUntil([&] { return !window.Exists(); }) ? 0 : Complain(L"the window does not close");
}

struct Command {
  int (*run)(const Arguments&);
  std::size_t least;  // words, the command itself included
};

const std::map<std::wstring, Command> kCommands{
    {L"wait-window", {WaitWindow, 1}},
    {L"window", {ChooseWindow, 2}},
    {L"command", {ChooseCommand, 2}},
    {L"click", {Click, 2}},
    {L"press", {Press, 2}},
    {L"wait-enabled", {WaitEnabled, 2}},
    {L"wait-text", {WaitText, 3}},
    {L"wait-same", {WaitSame, 3}},
    {L"follow", {Follow, 5}},
    {L"text", {Text, 2}},
    {L"picture", {Picture, 2}},
    {L"close", {Close, 1}},
};

int RunCommand(const Arguments& arguments) {
  const auto command = arguments.empty() ? kCommands.end() : kCommands.find(arguments.front());
  if (command == kCommands.end() || arguments.size() < command->second.least) {
    Complain(L"no such command" + (arguments.empty() ? L"" : L": " + arguments.front()));
    return kUsage;
  }
  return command->second.run(arguments);
}

}  // namespace
}  // namespace tolvane::window

int wmain(int count, wchar_t** words) {
  tolvane::window::Arguments arguments;
  for (int i = 1; i <= count; ++i) {
    if (i < count && std::wstring(words[i]) != L"--") {
      arguments.emplace_back(words[i]);
      continue;
    }
    if (const int result = tolvane::window::RunCommand(arguments); result != 0) return result;
    arguments.clear();
  }
  return 0;
}
