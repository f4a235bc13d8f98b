#include "platform/windows/rich_text/rich_edit_stream.h"

#include <algorithm>

namespace tolvane::platform::windows {
namespace {

// A result other than 0 ends the stream.
constexpr DWORD kGoOn = 0;
constexpr DWORD kStop = 1;

DWORD CALLBACK Append(DWORD_PTR cookie, LPBYTE bytes, LONG size, LONG* taken) noexcept {
  if (size < 0) return kStop;
  reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(bytes),
                                                 static_cast<std::size_t>(size));
  *taken = size;
  return kGoOn;
}

DWORD CALLBACK TakeFront(DWORD_PTR cookie, LPBYTE bytes, LONG room, LONG* given) noexcept {
  if (room < 0) return kStop;
  auto& rest = *reinterpret_cast<std::string_view*>(cookie);
  const std::size_t size = std::min(rest.size(), static_cast<std::size_t>(room));
  std::copy_n(rest.begin(), size, bytes);
  rest.remove_prefix(size);
  *given = static_cast<LONG>(size);
  return kGoOn;
}

}  // namespace

std::string StreamOut(HWND rich_edit, UINT format) {
  std::string bytes;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&bytes), 0, &Append};
  SendMessageW(rich_edit, EM_STREAMOUT, format, reinterpret_cast<LPARAM>(&stream));
  return bytes;
}

bool StreamIn(HWND rich_edit, std::string_view rtf) {
  const std::size_t size = rtf.size();
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rtf), 0, &TakeFront};
  SendMessageW(rich_edit, EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
  // The end need not be taken: the document may be over before it.
  return stream.dwError == 0 && rtf.size() < size;
}

}  // namespace tolvane::platform::windows
