#include "tests/window/system_clipboard.h"

#include <algorithm>
#include <cstring>

#include "tools/drive/driven_window.h"

namespace tolvane::window {
namespace {

UINT RichFormat() { return RegisterClipboardFormatW(L"Rich Text Format"); }

void PutBlock(UINT format, const void* bytes, std::size_t size) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
  std::memcpy(GlobalLock(block), bytes, size);
  GlobalUnlock(block);
  SetClipboardData(format, block);
}

/// The characters of a format up to the first NUL.
template <typename Character>
std::basic_string<Character> TakeBlock(UINT format) {
  const HANDLE block = GetClipboardData(format);
  if (block == nullptr) return {};
  const auto* begin = static_cast<const Character*>(GlobalLock(block));
  const auto* end = begin + GlobalSize(block) / sizeof(Character);
  std::basic_string<Character> text(begin, std::find(begin, end, Character{}));
  GlobalUnlock(block);
  return text;
}

}  // namespace

HeldClipboard::HeldClipboard()
    : owner_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                             nullptr)) {
  WaitUntil([this] { return OpenClipboard(owner_) != FALSE; });
}

HeldClipboard::~HeldClipboard() {
  CloseClipboard();
  // A later owner would wait for this window to hear of it.
  DestroyWindow(owner_);
}

void HeldClipboard::Put(const std::wstring& plain, std::string_view rich) {
  EmptyClipboard();
  if (!plain.empty()) {
    PutBlock(CF_UNICODETEXT, plain.c_str(), (plain.size() + 1) * sizeof(wchar_t));
  }
  if (!rich.empty()) PutBlock(RichFormat(), rich.data(), rich.size());
}

std::wstring HeldClipboard::Plain() const { return TakeBlock<wchar_t>(CF_UNICODETEXT); }

std::string HeldClipboard::Rich() const { return TakeBlock<char>(RichFormat()); }

void WaitForQuietClipboard() {
  constexpr ULONGLONG kQuiet = 500;  // ms
  ULONGLONG since = GetTickCount64();
  WaitUntil([&] {
    if (GetOpenClipboardWindow() != nullptr) since = GetTickCount64();
    return GetTickCount64() - since >= kQuiet;
  });
}

RichTextReader::RichTextReader(const std::string& rich)
    : library_(LoadLibraryW(L"msftedit.dll")),
      control_(CreateWindowExW(0, MSFTEDIT_CLASS, L"", WS_POPUP | ES_MULTILINE, 0, 0, 100, 100,
                               nullptr, nullptr, nullptr, nullptr)) {
  SETTEXTEX how{ST_DEFAULT, CP_ACP};
  SendMessageW(control_, EM_SETTEXTEX, reinterpret_cast<WPARAM>(&how),
               reinterpret_cast<LPARAM>(rich.c_str()));
}

RichTextReader::~RichTextReader() {
  DestroyWindow(control_);
  FreeLibrary(library_);
}

std::wstring RichTextReader::Text() const { return TextOf(control_); }

CHARFORMAT2W RichTextReader::FormatAt(int position) const {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  SendMessageW(control_, EM_SETSEL, static_cast<WPARAM>(position), position + 1);
  SendMessageW(control_, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format;
}

}  // namespace tolvane::window
