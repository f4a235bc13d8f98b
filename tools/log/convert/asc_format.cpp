#include <algorithm>

#include "tools/log/convert/digits.h"
#include "tools/log/convert/formats.h"
#include "tools/log/convert/moment.h"

namespace tolvane::logtool {

namespace {

constexpr std::size_t kSecondsWidth = 4;
constexpr std::size_t kIdWidth = 15;

/// "Fri Nov 20 09:05:07.123 am 2026", in English whatever the system speaks.
std::string DateText(std::int64_t calendar_ms) {
  constexpr std::string_view kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  constexpr std::string_view kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const platform::LocalTime time = CalendarTime(calendar_ms);
  const auto padded = [](std::int32_t number) {
    return std::string(number < 10 ? "0" : "") + std::to_string(number);
  };
  const std::string ms = std::to_string(1000 + calendar_ms % 1000).substr(1);
  const std::int32_t hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
  return std::string(kDays[time.weekday]) + " " + std::string(kMonths[time.month - 1]) + " " +
         padded(time.day) + " " + padded(hour) + ":" + padded(time.minute) + ":" +
         padded(time.second) + "." + ms + (time.hour < 12 ? " am " : " pm ") +
         std::to_string(time.year);
}

}  // namespace

AscFormat::AscFormat(const std::optional<TimeAnchor>& anchor)
    : calendar_ms_(anchor ? anchor->calendar_ms : 0) {}

std::string AscFormat::Head() const {
  return "date " + DateText(calendar_ms_) +
         "\nbase hex  timestamps absolute\nno internal events logged\n";
}

char* AscFormat::Line(const LogFrame& frame, char* at) const {
  const auto us = static_cast<std::uint64_t>(MicrosecondsOf(frame.time));
  char seconds[20];
  const auto length = static_cast<std::size_t>(PutDecimal(seconds, us / 1'000'000) - seconds);
  if (length < kSecondsWidth) at = std::fill_n(at, kSecondsWidth - length, ' ');
  at = std::copy_n(seconds, length, at);
  *at++ = '.';
  at = PutPadded<6>(at, static_cast<std::uint32_t>(us % 1'000'000));
  at = Put(at, " 1  ");
  char* const id = at;
  at = PutHexNumber(at, frame.id);
  if (frame.extended) *at++ = 'x';
  at = std::fill_n(at, id + kIdWidth - at, ' ');
  at = Put(at, " Rx   d ");
  *at++ = static_cast<char>('0' + frame.bytes);
  for (std::size_t i = 0; i < frame.bytes; ++i) {
    *at++ = ' ';
    at = PutHexByte(at, frame.data[i]);
  }
  *at++ = '\n';
  return at;
}

}  // namespace tolvane::logtool
