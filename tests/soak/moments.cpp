#include "tests/soak/moments.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tolvane::soak {
namespace {

/// The whole numbers of a line; false when it does not have just as many.
bool ReadNumbers(std::string_view line, std::array<std::int64_t, 5>& numbers) {
  const char* at = line.data();
  const char* const end = at + line.size();
  for (std::int64_t& number : numbers) {
    if (&number != numbers.data() && (at == end || *at++ != ' ')) return false;
    const auto [stop, error] = std::from_chars(at, end, number);
    if (error != std::errc{}) return false;
    at = stop;
  }
  return at == end;
}

}  // namespace

std::string MomentLine(const Moment& moment) {
  std::string line = std::to_string(moment.at_us);
  for (const std::int64_t number :
       {moment.over_us, moment.waited_us, moment.grown_kb, moment.asleep_us}) {
    line += ' ' + std::to_string(number);
  }
  return line + '\n';
}

std::vector<Moment> ReadMoments(std::string_view text) {
  std::vector<Moment> moments;
  for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
    std::array<std::int64_t, 5> numbers{};
    if (ReadNumbers(text.substr(0, end), numbers)) {
      moments.push_back({.at_us = numbers[0],
                         .over_us = numbers[1],
                         .waited_us = numbers[2],
                         .grown_kb = numbers[3],
                         .asleep_us = numbers[4]});
    }
    text.remove_prefix(end + 1);
  }
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
