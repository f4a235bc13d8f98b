#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "simulator/candump_log.h"

using tolvane::simulator::BusFrame;
using tolvane::simulator::CandumpLog;
using tolvane::simulator::LogSource;

/// For any text: frames are possible on a bus and in order, and bytes beyond their length are 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto log = std::make_shared<const CandumpLog>(tolvane::simulator::ParseCandumpLog(
      std::string_view(reinterpret_cast<const char*>(data), size)));
  LogSource source(log, 2);
  BusFrame frame;
  std::int64_t last_us = 0;
  std::size_t played = 0;
  while (source.Next(frame)) {
    if (frame.time_us < last_us || frame.id > tolvane::simulator::kMaxExtendedId ||
        frame.dlc > 15) {
      std::abort();
    }
    for (std::size_t i = frame.dlc; i < frame.data.size(); ++i) {
      if (frame.data[i] != 0) std::abort();
    }
    last_us = frame.time_us;
    ++played;
  }
  if (played != 2 * log->frames.size()) std::abort();
  return 0;
}
