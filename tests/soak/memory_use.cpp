#include "tests/soak/memory_use.h"

#include <algorithm>
#include <array>
#include <optional>

#include "tests/soak/number_line.h"

namespace tolvane::soak {
namespace {

constexpr std::int64_t kMinuteUs = 60'000'000;
constexpr std::int64_t kItsEndUs = 10'000'000;  // several logs are written meanwhile
// A loaded machine may tell of the last seconds late.
constexpr std::int64_t kUntoldUs = 5'000'000;

}  // namespace

bool MemoryUse::TellsOf(std::int64_t run_us) const {
  const bool has_minute = run_us >= kMinuteUs - kUntoldUs;
  return watched_us >= run_us - kUntoldUs && (!has_minute || first_kb > 0);
}

std::string MemoryLine(std::int64_t at_us, std::int64_t most_kb) {
  return NumberLine({at_us, most_kb});
}

MemoryUse ReadMemory(std::string_view text) {
  MemoryUse use;
  std::optional<std::int64_t> began_us;
  EachNumberLine<2>(text, [&](const std::array<std::int64_t, 2>& line) {
    const auto [at_us, most_kb] = line;
    const std::int64_t elapsed_us = at_us - began_us.value_or(at_us);
    if (!began_us) began_us = at_us;
    use.last_kb = most_kb;
    use.watched_us = elapsed_us;
    if (elapsed_us <= kMinuteUs - kItsEndUs) return;
    if (elapsed_us <= kMinuteUs) use.first_kb = std::max(use.first_kb, most_kb);
    use.most_kb = std::max(use.most_kb, most_kb);
  });
  return use;
}

}  // namespace tolvane::soak
