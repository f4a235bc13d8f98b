#include "simulator/office/utf8.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tolvane::office {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void AppendContinuation(std::string& out, char32_t code, int shift) {
  out.push_back(static_cast<char>(0x80U | ((code >> shift) & 0x3FU)));
}

void AppendCode(std::string& out, char32_t code) {
  if (code < 0x80) {
    out.push_back(static_cast<char>(code));
  } else if (code < 0x800) {
    out.push_back(static_cast<char>(0xC0U | (code >> 6)));
    AppendContinuation(out, code, 0);
  } else if (code < 0x10000) {
    out.push_back(static_cast<char>(0xE0U | (code >> 12)));
    AppendContinuation(out, code, 6);
    AppendContinuation(out, code, 0);
  } else {
    out.push_back(static_cast<char>(0xF0U | (code >> 18)));
    AppendContinuation(out, code, 12);
    AppendContinuation(out, code, 6);
    AppendContinuation(out, code, 0);
  }
}

struct Decoded {
  char32_t code;
  std::size_t length;  // bytes taken, at least 1
};

Decoded DecodeOne(std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes[0]);
  if (first < 0x80) return {first, 1};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || bytes.size() < length) return {kReplacement, 1};
  char32_t code = first & (0xFFU >> (length + 1));
  for (std::size_t index = 1; index < length; ++index) {
    const auto next = static_cast<unsigned char>(bytes[index]);
    if ((next & 0xC0U) != 0x80U) return {kReplacement, 1};
    code = (code << 6) | (next & 0x3FU);
  }
  constexpr std::array<char32_t, 5> kLowest{0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = IsHighSurrogate(code) || IsLowSurrogate(code);
  if (code < kLowest[length] || code > 0x10FFFF || surrogate) return {kReplacement, 1};
  return {code, length};
}

}  // namespace

void AppendUtf8(std::string& out, StringView text) {
  for (std::size_t index = 0; index < text.size(); ++index) {
    char32_t code = text[index];
    if (IsHighSurrogate(code) && index + 1 < text.size() && IsLowSurrogate(text[index + 1])) {
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

String FromUtf8(std::string_view bytes) {
  String out;
  while (!bytes.empty()) {
    const auto [code, length] = DecodeOne(bytes);
    bytes.remove_prefix(length);
    if (code >= 0x10000) {
      out.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
    } else {
      out.push_back(static_cast<char16_t>(code));
    }
  }
  return out;
}

}  // namespace tolvane::office
