#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "simulator/bench_config.h"
#include "simulator/bus_tap.h"
#include "simulator/candump_log.h"
#include "simulator/report.h"

namespace tolvane::simulator {

/// The calls whose results the bench file gives, and how often each has come.
class CallScript {
 public:
  explicit CallScript(std::vector<CallResult> results)
      : results_(std::move(results)), calls_(results_.size()) {}

  /// Counts the call; its result when the file gives one now.
  std::optional<std::int32_t> Next(std::string_view call);

 private:
  std::vector<CallResult> results_;
  std::vector<std::int64_t> calls_;
};

/// Drivers of all kinds of adapters: one that acknowledges frames, and one that does not.
inline constexpr std::string_view kNormalDriver = "normal";
inline constexpr std::string_view kSilentDriver = "silent";

/// What a program has set an adapter to.
struct BusSettings {
  std::int32_t bit_rate;    // bits per second
  std::string_view driver;  // how it drives the bus, as the report tells it
  AcceptanceFilter filter{};
};

/// What the three simulated libraries share: the bench file, the clock, the bus and the report.
class Bench {
 public:
  /// `clock` null: the one that the configuration names. Relative paths in `config` start at
  /// `folder`.
  Bench(BenchConfig config, const std::filesystem::path& folder, std::unique_ptr<Report> report,
        std::unique_ptr<BenchClock> clock = nullptr);

  const BenchConfig& Config() const { return config_; }
  Report& Record() { return *report_; }

  /// The adapter goes on the bus, at bus time 0. If its rate is not that of the bus it receives
  /// error frames and no data.
  std::unique_ptr<BusTap> Listen(std::string_view adapter, const AdapterPlan& plan,
                                 const BusSettings& settings);
  /// Reports a call that a program must not make, or not now. Returns `result`.
  std::int32_t Refuse(std::string_view call, std::string_view why, std::int32_t result);
  /// Reports a fault when the rate is not that of the bus.
  void JudgeRate(std::string_view adapter, std::int32_t bit_rate);

 private:
  std::unique_ptr<BusSource> NewSource();
  std::unique_ptr<BusSource> NewLiveSource();
  std::shared_ptr<const CandumpLog> Recording();

  BenchConfig config_;
  std::filesystem::path folder_;
  std::unique_ptr<Report> report_;
  std::unique_ptr<BenchClock> clock_;
  std::shared_ptr<const CandumpLog> recording_;
};

/// The bench of `library`. The bench file is `named`, or tolvane-bench.ini in `folder` when `named`
/// is empty; if there is no file, the default bench.
std::unique_ptr<Bench> LoadBench(std::string_view library, const std::filesystem::path& named,
                                 const std::filesystem::path& folder);

}  // namespace tolvane::simulator
