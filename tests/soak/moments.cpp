#include "tests/soak/moments.h"

#include <algorithm>
#include <array>

#include "tests/soak/number_line.h"

namespace tolvane::soak {

std::string MomentLine(const Moment& moment) {
  return NumberLine(
      {moment.at_us, moment.over_us, moment.waited_us, moment.grown_kb, moment.asleep_us});
}

std::vector<Moment> ReadMoments(std::string_view text) {
  std::vector<Moment> moments;
  EachNumberLine<5>(text, [&moments](const std::array<std::int64_t, 5>& numbers) {
    moments.push_back({.at_us = numbers[0],
                       .over_us = numbers[1],
                       .waited_us = numbers[2],
                       .grown_kb = numbers[3],
                       .asleep_us = numbers[4]});
  });
  return moments;
}

Moment Within(const simulator::ReadGap& gap, const std::vector<Moment>& moments) {
  Moment sum{.at_us = gap.at_us, .over_us = gap.us};
  const std::int64_t began_us = gap.at_us - gap.us;
  const auto first = std::ranges::upper_bound(moments, began_us, {}, &Moment::at_us);
  for (auto moment = first; moment != moments.end(); ++moment) {
    if (moment->at_us - moment->over_us >= gap.at_us) break;
    sum.waited_us += moment->waited_us;
    sum.grown_kb += moment->grown_kb;
    if (moment->at_us <= gap.at_us) sum.asleep_us += moment->asleep_us;
  }
  sum.waited_us = std::min(sum.waited_us, gap.us);
  sum.asleep_us = std::min(sum.asleep_us, gap.us - sum.waited_us);
  return sum;
}

}  // namespace tolvane::soak
