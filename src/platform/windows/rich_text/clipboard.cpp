#include "platform/windows/rich_text/clipboard.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>

#include "platform/byte_text.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

constexpr std::chrono::milliseconds kPause{2};  // between two tries

/// Opens the clipboard, trying again while another program holds it.
bool OpenWithPatience(HWND owner, std::int32_t patience) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::milliseconds(patience);
  while (OpenClipboard(owner) == FALSE) {
    if (Clock::now() + kPause > end) return false;
    Sleep(static_cast<DWORD>(kPause.count()));
  }
  return true;
}

/// Holds the clipboard while it lives; false when another program does.
class OpenedClipboard {
 public:
  OpenedClipboard(HWND owner, std::int32_t patience) : opened_(OpenWithPatience(owner, patience)) {}
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() {
    if (opened_) CloseClipboard();
  }
  explicit operator bool() const { return opened_; }

 private:
  bool opened_;
};

/// The units of a block up to its first NUL. Another program made the block: its NUL may be
/// missing.
template <typename Unit>
std::basic_string<Unit> BlockText(HANDLE block) {
  const auto* begin = static_cast<const Unit*>(GlobalLock(block));
  if (begin == nullptr) return {};
  const Unit* end = begin + GlobalSize(block) / sizeof(Unit);
  std::basic_string<Unit> text(begin, std::find(begin, end, Unit{}));
  GlobalUnlock(block);
  return text;
}

template <typename Unit>
bool SetBlock(UINT format, const std::basic_string<Unit>& text) {
  const std::size_t size = (text.size() + 1) * sizeof(Unit);
  GlobalHandle block(GlobalAlloc(GMEM_MOVEABLE, size));
  if (!block) return false;
  void* bytes = GlobalLock(block.Get());
  if (bytes == nullptr) return false;
  std::memcpy(bytes, text.c_str(), size);
  GlobalUnlock(block.Get());
  if (SetClipboardData(format, block.Get()) == nullptr) return false;
  static_cast<void>(block.Release());  // the clipboard's now
  return true;
}

}  // namespace

WindowsClipboard::WindowsClipboard(HWND owner)
    : owner_(owner), rich_text_(RegisterClipboardFormatW(L"Rich Text Format")) {}

UINT WindowsClipboard::FormatNumber(Format format) const {
  return format == Format::kRichText ? rich_text_ : CF_UNICODETEXT;
}

bool WindowsClipboard::Replace(StringView plain_text, StringView rich_text, std::int32_t patience) {
  const OpenedClipboard opened(owner_, patience);
  if (!opened) return false;
  const bool is_empty = EmptyClipboard() != FALSE;
  const bool has_plain_text = SetBlock(CF_UNICODETEXT, String(plain_text));
  const bool has_rich_text = SetBlock(rich_text_, NarrowText(rich_text));
  return is_empty && has_plain_text && has_rich_text;
}

bool WindowsClipboard::GetFormat(Format format) {
  return IsClipboardFormatAvailable(FormatNumber(format)) != FALSE;
}

String WindowsClipboard::GetText(Format format, std::int32_t patience) {
  const OpenedClipboard opened(owner_, patience);
  if (!opened) return {};
  const HANDLE block = GetClipboardData(FormatNumber(format));
  if (block == nullptr) return {};
  return format == Format::kRichText ? WideText(BlockText<char>(block))
                                     : BlockText<char16_t>(block);
}

}  // namespace tolvane::platform::windows
