#include "tests/soak/process_watch.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <string>

namespace tolvane::soak {
namespace {

int OpenFile(std::int64_t process, const char* name) {
  const std::string path = "/proc/" + std::to_string(process) + '/' + name;
  return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

/// What such a file says now; empty when the process is gone.
std::string Text(int file) {
  std::array<char, 512> text;
  const ssize_t length = pread(file, text.data(), text.size(), 0);
  return length > 0 ? std::string(text.data(), static_cast<std::size_t>(length)) : std::string();
}

/// The second number of a text, behind its first blank.
std::int64_t SecondNumber(const std::string& text) {
  const std::size_t blank = text.find(' ');
  return blank == std::string::npos ? 0 : std::strtoll(text.c_str() + blank, nullptr, 10);
}

/// The clock that Wine gives to Windows programs as the performance counter.
std::int64_t NowUs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC_RAW, &now);
  return std::int64_t{now.tv_sec} * 1'000'000 + now.tv_nsec / 1000;
}

}  // namespace

ProcessWatch::ProcessWatch(std::int64_t process)
    : times_(OpenFile(process, "schedstat")),
      memory_(OpenFile(process, "statm")),
      state_(OpenFile(process, "stat")),
      last_(Ask()) {}

ProcessWatch::~ProcessWatch() {
  for (const int file : {times_, memory_, state_}) close(file);
}

std::optional<Moment> ProcessWatch::Look() {
  const std::optional<Told> before = last_;
  last_ = Ask();
  if (!before || !last_) return std::nullopt;
  Moment moment{.at_us = last_->at_us,
                .over_us = last_->at_us - before->at_us,
                .waited_us = last_->waited_us - before->waited_us,
                .grown_kb = last_->resident_kb - before->resident_kb};
  if (last_->asleep) {
    moment.asleep_us = std::max<std::int64_t>(moment.over_us - moment.waited_us, 0);
  }
  return moment;
}

std::optional<ProcessWatch::Told> ProcessWatch::Ask() const {
  const std::string times = Text(times_);
  const std::string memory = Text(memory_);
  const std::string state = Text(state_);
  const std::size_t name_end = state.rfind(')');
  if (times.empty() || memory.empty() || name_end + 2 >= state.size()) return std::nullopt;
  const char letter = state[name_end + 2];
  if (letter == 'Z' || letter == 'X') return std::nullopt;
  const std::int64_t page_kb = sysconf(_SC_PAGESIZE) / 1024;
  return Told{.at_us = NowUs(),
              .waited_us = SecondNumber(times) / 1000,
              .resident_kb = SecondNumber(memory) * page_kb,
              .asleep = letter == 'S' || letter == 'D'};
}

}  // namespace tolvane::soak
