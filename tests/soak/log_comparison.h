#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/bench_config.h"
#include "simulator/load_generator.h"
#include "tests/soak/expected_page.h"
#include "tests/soak/log_text.h"

namespace tolvane::soak {

/// Frames that found the adapter's queue full, one after the other on the bus.
struct Loss {
  std::int64_t behind = 0;  // records that the logs have ahead of it
  std::int64_t frames = 0;

  friend bool operator==(const Loss&, const Loss&) = default;
};

/// What the logs of a run came to.
struct ComparedLogs {
  std::int64_t files = 0;
  std::int64_t records = 0;
  std::int64_t lost = 0;       // frames of the bus that the logs pass over
  std::vector<Loss> losses{};  // in the order of the bus
  std::string difference{};    // the first one from what the bus said; empty without any
};

/// Holds the logs of a run, one after the other, against what its bench file says of the bus. Each
/// record must be that of the next frame, or, while the adapter's overruns last, of a later one.
class LogComparison {
 public:
  /// `overruns`: as many frames as the adapter dropped. The plan's frames are finite.
  LogComparison(const simulator::BenchConfig& config, bool ids29, std::int64_t overruns);
  LogComparison(const LogComparison&) = delete;
  LogComparison& operator=(const LogComparison&) = delete;

  /// The bytes of the next log, in the order of writing.
  void Add(const std::string& log);
  /// Behind the last log.
  [[nodiscard]] ComparedLogs Result();
  /// What the frames of the logs so far leave on the page.
  [[nodiscard]] const ExpectedPage& Page() const { return page_; }

 private:
  void CompareRecords(std::string_view records);
  [[nodiscard]] bool Take(std::string_view record);
  void Differ(std::int64_t record, std::string_view found, std::string_view expected);
  void Lose(std::int64_t frames);

  AdapterTime time_;
  LogText text_;
  simulator::LoadGenerator bus_;
  ExpectedPage page_;
  std::int64_t frames_;
  std::int64_t overruns_;
  std::int64_t of_file_ = 0;  // records of the last file
  ComparedLogs seen_;
};

}  // namespace tolvane::soak
