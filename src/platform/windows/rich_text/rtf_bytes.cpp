#include "platform/windows/rich_text/rtf_bytes.h"

#include <algorithm>

namespace tolvane::platform::windows {

String FromRtfBytes(std::string_view bytes) {
  String rtf(bytes.size(), u'\0');
  std::ranges::transform(bytes, rtf.begin(),
                         [](char byte) { return static_cast<unsigned char>(byte); });
  return rtf;
}

std::string ToRtfBytes(StringView rtf) {
  std::string bytes(rtf.size(), '\0');
  std::ranges::transform(rtf, bytes.begin(), [](char16_t unit) {
    return unit > 0xFF ? '?' : static_cast<char>(static_cast<unsigned char>(unit));
  });
  return bytes;
}

}  // namespace tolvane::platform::windows
