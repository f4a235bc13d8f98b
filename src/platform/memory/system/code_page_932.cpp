#include "platform/memory/system/code_page_932.h"

#include "platform/ascii_run.h"
#include "platform/surrogates.h"

namespace tolvane::platform::memory {

namespace {

constexpr char16_t kBroken = u'\u30FB';

bool IsLeadByte(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

bool IsTrailByte(unsigned char byte) { return byte >= 0x40 && byte <= 0xFC && byte != 0x7F; }

/// Length of the character at the front of `bytes`, which is not empty. A lead byte without its
/// trail byte stands alone.
std::size_t CharacterLength(std::string_view bytes) {
  if (!IsLeadByte(static_cast<unsigned char>(bytes[0])) || bytes.size() < 2) return 1;
  return IsTrailByte(static_cast<unsigned char>(bytes[1])) ? 2 : 1;
}

}  // namespace

void CodePage932::Encode(StringView text, std::string& bytes) {
  while (!text.empty()) {
    text.remove_prefix(AppendAsciiRun(text, bytes));
    if (text.empty()) return;
    if (StartsWithPair(text)) {
      bytes += '?';  // the page has nothing outside the basic plane
      text.remove_prefix(2);
    } else {
      EncodeCharacter(text[0], bytes);
      text.remove_prefix(1);
    }
  }
}

void CodePage932::EncodeCharacter(char16_t character, std::string& bytes) {
  // Libraries offer best fits, a backslash for a yen sign; only what comes back the same counts.
  const std::string encoded = characters_.Bytes(character);
  const bool held = !encoded.empty() && characters_.Character(encoded) == character;
  bytes += held ? encoded : "?";
}

String CodePage932::Decode(std::string_view bytes) {
  String text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto byte = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = CharacterLength(bytes);
    text += byte < 0x80 ? static_cast<char16_t>(byte)
                        : characters_.Character(bytes.substr(0, length)).value_or(kBroken);
    bytes.remove_prefix(length);
  }
  return text;
}

}  // namespace tolvane::platform::memory
