#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "simulator/candump_log.h"
#include "simulator/live_source.h"

using tolvane::simulator::BusFrame;
using tolvane::simulator::CandumpLog;
using tolvane::simulator::LiveCounts;
using tolvane::simulator::LiveSource;
using tolvane::simulator::LogSource;

namespace {

/// Hands a text out in pieces of odd sizes.
class PieceByPiece : public tolvane::simulator::GrowingText {
 public:
  explicit PieceByPiece(std::string_view text) : rest_(text) {}
  std::size_t Read(char* to, std::size_t size) override {
    piece_ = piece_ * 7 % 1'009;
    const std::size_t taken = rest_.copy(to, std::min(size, piece_));
    rest_.remove_prefix(taken);
    return taken;
  }

 private:
  std::string_view rest_;
  std::size_t piece_ = 1;
};

/// Lines that come one by one are the frames of a recording, whatever the pieces, and never ahead
/// of the bus.
void PlayLive(std::string_view text, const CandumpLog& log) {
  LiveCounts counts;
  {
    LiveSource source(std::make_unique<PieceByPiece>(text), false,
                      [&](const LiveCounts& told) { counts = told; });
    BusFrame frame;
    std::int64_t last_us = 0;
    for (std::int64_t now_us = 0; now_us < std::ssize(text) + 2; ++now_us) {
      source.Reach(now_us);
      while (source.Next(frame)) {
        if (frame.time_us < last_us || frame.time_us > now_us) std::abort();
        last_us = frame.time_us;
      }
    }
  }
  const bool ends_in_line = text.empty() || text.back() == '\n';
  if (text.size() >= LiveSource::kBytes_MAX || !ends_in_line) return;
  if (counts.frames != std::ssize(log.frames) || counts.refused_lines != log.refused_lines)
    std::abort();
}

}  // namespace

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
  PlayLive(std::string_view(reinterpret_cast<const char*>(data), size), *log);
  return 0;
}
