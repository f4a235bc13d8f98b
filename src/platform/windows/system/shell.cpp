#include "platform/windows/system/shell.h"

#include <array>

#include "platform/byte_text.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

constexpr INT_PTR kLastError = 32;  // of FindExecutable

}  // namespace

void WindowsShell::ShellExecuteA(StringView verb, StringView file, std::int32_t show_command) {
  ::ShellExecuteA(nullptr, NarrowText(verb).c_str(), NarrowText(file).c_str(), nullptr, nullptr,
                  show_command);
}

void WindowsShell::OpenPage(StringView file, StringView address) {
  const String page(file);
  std::array<wchar_t, MAX_PATH> program{};
  const auto result =
      reinterpret_cast<INT_PTR>(FindExecutableW(Wide(page), nullptr, program.data()));
  if (result <= kLastError) return;
  const String quoted = u"\"" + String(address) + u"\"";
  ShellExecuteW(nullptr, nullptr, program.data(), Wide(quoted), nullptr, SW_SHOWNORMAL);
}

String WindowsStringResources::LoadText(std::int32_t number) {
  // With a length of 0 the call gives the place of the text in the program's memory.
  const wchar_t* text = nullptr;
  const int length = LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(number),
                                 reinterpret_cast<wchar_t*>(&text), 0);
  if (length <= 0) return {};
  return String(FromWide(text, static_cast<std::size_t>(length)));
}

}  // namespace tolvane::platform::windows
