#pragma once

#include <cstring>
#include <string>

#include "platform/string.h"

namespace tolvane::office {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline String FromWide(const wchar_t* text, std::size_t length) {
  String out(length, u'\0');
  if (length != 0) std::memcpy(out.data(), text, length * sizeof(wchar_t));
  return out;
}

inline String FromWide(const std::wstring& text) { return FromWide(text.data(), text.size()); }

inline std::wstring ToWide(StringView text) {
  std::wstring out(text.size(), L'\0');
  if (!text.empty()) std::memcpy(out.data(), text.data(), text.size() * sizeof(wchar_t));
  return out;
}

}  // namespace tolvane::office
