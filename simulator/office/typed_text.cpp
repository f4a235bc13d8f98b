#include "simulator/office/typed_text.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tolvane::office {
namespace {

enum NumberFormat : int {
  kGeneral = 0,
  kThousands = 3,
  kThousandsWithDecimals = 4,
  kPercent = 9,
  kPercentWithDecimals = 10,
  kScientific = 11,
  kDate = 14,
  kHoursMinutes = 20,
  kHoursMinutesSeconds = 21,
  kDateTime = 22,
};

/// Takes a text apart from its front.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  /// One of these characters, if one stands next; else 0.
  char Take(std::string_view characters) {
    if (rest_.empty() || characters.find(rest_.front()) == std::string_view::npos) return 0;
    const char taken = rest_.front();
    rest_.remove_prefix(1);
    return taken;
  }

  std::string_view Digits() {
    const std::size_t length = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
    const std::string_view digits = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return digits;
  }

  /// At most four digits, as the parts of dates and times have.
  std::optional<int> ShortNumber() {
    const std::string_view digits = Digits();
    if (digits.empty() || digits.size() > 4) return std::nullopt;
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
  }

 private:
  std::string_view rest_;
};

/// Digits in one piece, or in groups of three behind the first comma. Empty when the groups are not
/// whole.
std::optional<std::string> WholePart(Reader& reader, bool& grouped) {
  std::string digits(reader.Digits());
  while (!digits.empty() && reader.Take(",") != 0) {
    const std::string_view group = reader.Digits();
    if (group.size() != 3) return std::nullopt;
    digits += group;
    grouped = true;
  }
  return digits;
}

/// Empty when it is too large for a cell; what is too small is 0.
std::optional<double> Number(const std::string& text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc()) return number;
  return text.find("E-") == std::string::npos ? std::nullopt : std::optional(0.0);
}

/// [sign] [currency] digits [. digits] [E [sign] digits] [%], or all in brackets for a negative
/// one.
std::optional<Typed> ParseNumber(std::string_view text) {
  Reader reader(text);
  const bool bracketed = reader.Take("(") != 0;
  const char sign = bracketed ? '-' : reader.Take("+-");
  reader.Take("$\\");  // the yen sign has the place of the backslash
  bool grouped = false;
  const std::optional<std::string> whole = WholePart(reader, grouped);
  if (!whole) return std::nullopt;
  std::string digits = *whole;
  const bool point = reader.Take(".") != 0;
  const std::string_view decimals = point ? reader.Digits() : std::string_view();
  if (whole->empty() && decimals.empty()) return std::nullopt;
  if (whole->empty()) digits = "0";
  if (!decimals.empty()) digits += "." + std::string(decimals);
  const bool scientific = reader.Take("Ee") != 0;
  if (scientific) {
    digits += reader.Take("+-") == '-' ? "E-" : "E";
    const std::string_view exponent = reader.Digits();
    if (exponent.empty()) return std::nullopt;
    digits += exponent;
  }
  const bool percent = reader.Take("%") != 0;
  if (bracketed && reader.Take(")") == 0) return std::nullopt;
  const std::optional<double> number = Number(digits);
  if (!reader.AtEnd() || !number) return std::nullopt;

  int format = kGeneral;
  if (grouped) format = decimals.empty() ? kThousands : kThousandsWithDecimals;
  if (scientific) format = kScientific;
  if (percent) format = decimals.empty() ? kPercent : kPercentWithDecimals;
  return Typed{(sign == '-' ? -*number : *number) / (percent ? 100 : 1), format};
}

/// year/month/day or month/day of this year, as days since the last one of 1899.
std::optional<double> ParseDate(Reader& reader) {
  using namespace std::chrono;
  constexpr sys_days kOrigin = 1899y / December / 30;
  const std::optional<int> first = reader.ShortNumber();
  const char separator = reader.Take("/-");
  const std::optional<int> second = reader.ShortNumber();
  if (!first || separator == 0 || !second) return std::nullopt;
  year_month_day date(floor<days>(system_clock::now()));
  if (reader.Take(std::string_view(&separator, 1)) != 0) {
    const std::optional<int> third = reader.ShortNumber();
    if (!third) return std::nullopt;
    const int century = *first >= 100 ? 0 : *first < 30 ? 2000 : 1900;
    date = year(*first + century) / *second / *third;
  } else {
    date = date.year() / *first / *second;
  }
  if (!date.ok() || date.year() < 1900y) return std::nullopt;
  return (sys_days(date) - kOrigin).count();
}

/// hours:minutes[:seconds], as a part of a day.
std::optional<double> ParseTime(Reader& reader, int& format) {
  const std::optional<int> hours = reader.ShortNumber();
  if (!hours || reader.Take(":") == 0) return std::nullopt;
  const std::optional<int> minutes = reader.ShortNumber();
  if (!minutes || *minutes > 59) return std::nullopt;
  format = kHoursMinutes;
  int seconds = 0;
  if (reader.Take(":") != 0) {
    const std::optional<int> last = reader.ShortNumber();
    if (!last || *last > 59) return std::nullopt;
    seconds = *last;
    format = kHoursMinutesSeconds;
  }
  return ((*hours * 60 + *minutes) * 60 + seconds) / 86400.0;
}

std::optional<Typed> ParseDateOrTime(std::string_view text) {
  int format = kDate;
  Reader reader(text);
  std::optional<double> date = ParseDate(reader);
  if (date && reader.AtEnd()) return Typed{*date, format};
  if (date && reader.Take(" ") == 0) return std::nullopt;
  if (!date) reader = Reader(text);
  const std::optional<double> time = ParseTime(reader, format);
  if (!time || !reader.AtEnd()) return std::nullopt;
  return date ? Typed{*date + *time, kDateTime} : Typed{*time, format};
}

std::optional<Typed> ParseTruth(std::string_view text) {
  std::string capitals(text);
  for (char& letter : capitals) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - ('a' - 'A'));
  }
  if (capitals != "TRUE" && capitals != "FALSE") return std::nullopt;
  return Typed{capitals == "TRUE"};
}

/// Without the blanks at both ends; empty when a character is not ASCII, which no number has.
std::string Bare(StringView text) {
  std::string bare;
  for (const char16_t unit : text) {
    if (unit > 0x7E) return {};
    bare.push_back(static_cast<char>(unit));
  }
  const std::size_t last = bare.find_last_not_of(' ');
  bare.erase(last == std::string::npos ? 0 : last + 1);
  return bare.erase(0, std::min(bare.find_first_not_of(' '), bare.size()));
}

/// "-" and "----" are texts.
bool BeginsAFormula(StringView text) {
  return (text.front() == u'=' && text.size() > 1) ||
         ((text.front() == u'+' || text.front() == u'-' || text.front() == u'@') &&
          text.find_first_not_of(u"+-@") != StringView::npos);
}

}  // namespace

Typed ParseTyped(StringView text) {
  if (text.empty()) return {};
  if (text.front() == u'\'') return {String(text.substr(1))};
  const std::string bare = Bare(text);
  for (const auto parse : {ParseTruth, ParseNumber, ParseDateOrTime}) {
    if (std::optional<Typed> typed = parse(bare)) return *std::move(typed);
  }
  if (BeginsAFormula(text)) return {{}, kGeneral, true};
  return {String(text)};
}

}  // namespace tolvane::office
