#include "platform/windows/system/code_page.h"

#include <algorithm>
#include <limits>

#include "platform/ascii_run.h"
#include "platform/surrogates.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

// The conversion counts in int, and makes room for the most bytes of each unit at once; longer runs
// go in pieces of this many units.
constexpr std::size_t kPiece = 1 << 20;
constexpr int kBytesPerUnit = 4;

/// Appends the bytes of `text`; false, with nothing appended, when the page lacks a character.
bool EncodeExactly(StringView text, std::string& bytes) {
  const std::size_t before = bytes.size();
  bytes.resize(before + text.size() * kBytesPerUnit);
  const int room = static_cast<int>(text.size()) * kBytesPerUnit;
  // UTF-8 as the system page holds everything and takes neither the flag nor the answer.
  const bool is_utf8 = GetACP() == CP_UTF8;
  BOOL lacking = FALSE;
  const int written = WideCharToMultiByte(
      CP_ACP, is_utf8 ? 0 : WC_NO_BEST_FIT_CHARS, WideData(text), static_cast<int>(text.size()),
      bytes.data() + before, room, nullptr, is_utf8 ? nullptr : &lacking);
  bytes.resize(before + (lacking ? 0 : static_cast<std::size_t>(written)));
  return !lacking;
}

void EncodePiece(StringView text, std::string& bytes) {
  if (EncodeExactly(text, bytes)) return;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = StartsWithPair(text.substr(i)) ? 2 : 1;
    if (!EncodeExactly(text.substr(i, length), bytes)) bytes += '?';
    i += length;
  }
}

}  // namespace

void WindowsCodePage::Encode(StringView text, std::string& bytes) {
  while (true) {
    text.remove_prefix(AppendAsciiRun(text, bytes));
    if (text.empty()) return;
    const auto end = std::find_if(text.begin(), text.end(), IsAscii);
    const StringView piece =
        FrontPiece(text.substr(0, static_cast<std::size_t>(end - text.begin())), kPiece);
    EncodePiece(piece, bytes);
    text.remove_prefix(piece.size());
  }
}

String WindowsCodePage::Decode(std::string_view bytes) {
  // No page yields more units than bytes. Files that the program reads are far below 2 GiB.
  if (bytes.empty() || bytes.size() > std::numeric_limits<int>::max()) return {};
  String text(bytes.size(), u'\0');
  const int size = static_cast<int>(bytes.size());
  const int written = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, WideData(text), size);
  text.resize(static_cast<std::size_t>(written));
  return text;
}

}  // namespace tolvane::platform::windows
