#include "platform/utf8.h"

#include <cstddef>

#include "platform/surrogates.h"

namespace tolvane {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// The lead of 0 to 3 continuation bytes.
constexpr unsigned kLeads[] = {0, 0xC0, 0xE0, 0xF0};

void AppendCode(std::string& out, char32_t code) {
  int left = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  out.push_back(static_cast<char>(kLeads[left] | (code >> (6 * left))));
  while (left-- > 0) out.push_back(static_cast<char>(0x80U | ((code >> (6 * left)) & 0x3FU)));
}

}  // namespace

void AppendUtf8(std::string& out, StringView text) {
  for (std::size_t index = 0; index < text.size(); ++index) {
    char32_t code = text[index];
    if (StartsWithPair(text.substr(index))) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++index] - 0xDC00U);
    } else if (IsHighSurrogate(code) || IsLowSurrogate(code)) {
      code = kReplacement;
    }
    AppendCode(out, code);
  }
}

std::string ToUtf8(StringView text) {
  std::string out;
  out.reserve(text.size());
  AppendUtf8(out, text);
  return out;
}

}  // namespace tolvane
