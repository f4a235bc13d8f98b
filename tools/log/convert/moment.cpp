#include "tools/log/convert/moment.h"

#include <charconv>
#include <chrono>

namespace tolvane::logtool {

namespace {

/// Takes a number and the separator behind it, any character that is no digit.
class Numbers {
 public:
  explicit Numbers(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  [[nodiscard]] bool Next(std::int32_t least, std::int32_t most, std::int32_t& number) {
    const char* const end = rest_.data() + rest_.size();
    const auto result = std::from_chars(rest_.data(), end, number);
    if (result.ec != std::errc() || number < least || number > most) return false;
    rest_.remove_prefix(static_cast<std::size_t>(result.ptr - rest_.data()));
    if (!rest_.empty()) rest_.remove_prefix(1);
    return true;
  }

 private:
  std::string_view rest_;
};

}  // namespace

std::optional<platform::LocalTime> MomentOf(std::string_view written) {
  platform::LocalTime time{};
  Numbers numbers(written);
  constexpr std::int32_t kFirstYear = 1970;
  constexpr std::int32_t kLastYear = 9000;  // the years of its log have four digits too
  if (!numbers.Next(kFirstYear, kLastYear, time.year) || !numbers.Next(1, 12, time.month) ||
      !numbers.Next(1, 31, time.day)) {
    return {};
  }
  using namespace std::chrono;
  if (!(year(time.year) / time.month / time.day).ok()) return {};  // February 31
  if (numbers.AtEnd()) return time;
  if (!numbers.Next(0, 23, time.hour) || !numbers.Next(0, 59, time.minute) ||
      !numbers.Next(0, 59, time.second) || !numbers.AtEnd()) {
    return {};
  }
  return time;
}

std::int64_t CalendarMs(const platform::LocalTime& time) {
  using namespace std::chrono;
  const sys_days day = year(time.year) / time.month / time.day;
  const auto moment = day + hours(time.hour) + minutes(time.minute) + seconds(time.second);
  return duration_cast<milliseconds>(moment.time_since_epoch()).count();
}

platform::LocalTime CalendarTime(std::int64_t ms) {
  using namespace std::chrono;
  const sys_seconds moment(floor<seconds>(milliseconds(ms)));
  const auto day = floor<days>(moment);
  const year_month_day date(day);
  const hh_mm_ss of_day(moment - day);
  return {static_cast<int>(date.year()),
          static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
          static_cast<std::int32_t>(static_cast<unsigned>(date.day())),
          static_cast<std::int32_t>(weekday(day).c_encoding()),
          static_cast<std::int32_t>(of_day.hours().count()),
          static_cast<std::int32_t>(of_day.minutes().count()),
          static_cast<std::int32_t>(of_day.seconds().count())};
}

}  // namespace tolvane::logtool
