#include "platform/memory/system/wall_clock.h"

#include "run/number_text.h"

namespace tolvane::platform::memory {

namespace {

String TwoDigits(std::int32_t number) {
  String text = number < 10 ? u"0" : u"";
  return text.append(DecimalText(std::int64_t{number}));
}

}  // namespace

String WallClock::GeneralDate(const LocalTime& time) {
  String text(DecimalText(std::int64_t{time.year}).View());
  text += u"/" + TwoDigits(time.month) + u"/" + TwoDigits(time.day);
  if (time.IsMidnight()) return text;
  text.append(u" ").append(DecimalText(std::int64_t{time.hour}));
  return text + u":" + TwoDigits(time.minute) + u":" + TwoDigits(time.second);
}

String WallClock::ShortWeekday(const LocalTime& time) {
  return String(StringView(u"日月火水木金土").substr(static_cast<std::size_t>(time.weekday), 1));
}

}  // namespace tolvane::platform::memory
