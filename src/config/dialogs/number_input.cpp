#include "config/dialogs/number_input.h"

#include <charconv>
#include <limits>
#include <string>
#include <system_error>

#include "run/number_text.h"

namespace tolvane {

namespace {

StringView Trimmed(StringView text) {
  constexpr StringView kBlanks = u" \t\u3000";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == StringView::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<int> HexDigit(char16_t character) {
  if (character >= u'0' && character <= u'9') return character - u'0';
  if (character >= u'A' && character <= u'F') return character - u'A' + 10;
  if (character >= u'a' && character <= u'f') return character - u'a' + 10;
  return std::nullopt;
}

}  // namespace

std::optional<double> DecimalInput(StringView text) {
  text = Trimmed(text);
  bool negative = false;
  if (!text.empty() && (text[0] == u'+' || text[0] == u'-')) {
    negative = text[0] == u'-';
    text.remove_prefix(1);
  }
  std::string digits;
  int points = 0;
  for (const char16_t character : text) {
    if (character == u'.') {
      ++points;
    } else if (character < u'0' || character > u'9') {
      return std::nullopt;
    }
    digits.push_back(static_cast<char>(character));
  }
  if (points > 1 || digits.size() == static_cast<std::size_t>(points)) return std::nullopt;
  double value = 0.0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  // Out of range is too large, or so small that it stands for 0; a leading 0 tells them apart.
  if (result.ec == std::errc::result_out_of_range) {
    const bool tiny = digits.find_first_not_of("0.") > digits.find('.');
    value = tiny ? 0.0 : std::numeric_limits<double>::infinity();
  }
  return negative ? -value : value;
}

std::optional<std::int32_t> WholeNumberInput(StringView text, std::int32_t low, std::int32_t high) {
  const auto value = DecimalInput(text);
  if (!value) return std::nullopt;
  const double whole = RoundHalfToEven(*value);
  if (!(whole >= low && whole <= high)) return std::nullopt;
  return static_cast<std::int32_t>(whole);
}

std::optional<std::int64_t> HexInput(StringView text) {
  text = Trimmed(text);
  if (text.empty()) return std::nullopt;
  std::uint64_t value = 0;
  for (const char16_t character : text) {
    const auto digit = HexDigit(character);
    if (!digit) return std::nullopt;
    constexpr std::uint64_t kTooLarge = std::uint64_t{1} << 32;
    if (value < kTooLarge) value = value << 4 | static_cast<std::uint64_t>(*digit);
  }
  if (value > 0xFFFFFFFF) return std::numeric_limits<std::int64_t>::max();
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

}  // namespace tolvane
