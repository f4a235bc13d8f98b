#include "simulator/bench.h"

#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <utility>

#include "simulator/garbled_source.h"
#include "simulator/live_source.h"
#include "simulator/values.h"
#include "simulator/vehicle.h"

namespace tolvane::simulator {
namespace {

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path) {
  std::error_code missing;                                                // told by the opening
  if (std::filesystem::is_directory(path, missing)) return std::nullopt;  // some systems open it
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

std::filesystem::path PathFrom(const std::filesystem::path& folder, std::string_view utf8) {
  return folder / std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

/// What the report tells of a recording.
std::string Told(const CandumpLog& log) {
  const std::string lead =
      log.frames.empty() ? "error: recording holds nothing to play," : "recording";
  std::string told = lead + " frames=" + std::to_string(log.frames.size()) +
                     " refused_lines=" + std::to_string(log.refused_lines);
  if (log.refused_lines > 0)
    told += " first_refused_line=" + std::to_string(log.first_refused_line);
  return told;
}

}  // namespace

std::optional<std::int32_t> CallScript::Next(std::string_view call) {
  for (std::size_t i = 0; i < results_.size(); ++i) {
    if (results_[i].call != call) continue;
    if (calls_[i]++ >= results_[i].after) return results_[i].result;
  }
  return std::nullopt;
}

Bench::Bench(BenchConfig config, const std::filesystem::path& folder,
             std::unique_ptr<Report> report, std::unique_ptr<BenchClock> clock)
    : config_(std::move(config)),
      folder_(folder),
      report_(std::move(report)),
      clock_(std::move(clock)) {
  for (const std::string& problem : config_.problems) report_->Line("bench file " + problem);
  if (clock_ != nullptr) return;
  if (config_.counted_clock) {
    clock_ = std::make_unique<CountedClock>(config_.clock_step_us);
  } else {
    clock_ = std::make_unique<SteadyClock>();
  }
}

std::unique_ptr<BusTap> Bench::Listen(std::string_view adapter, const AdapterPlan& plan,
                                      const BusSettings& settings) {
  std::unique_ptr<BusSource> source = std::make_unique<BurstSource>(NewSource(), plan.burst);
  report_->Line("bus " + EscapeText(adapter) + " bit_rate=" + std::to_string(settings.bit_rate) +
                " driver=" + std::string(settings.driver));
  if (settings.bit_rate != config_.bus.bit_rate) {
    source = std::make_unique<GarbledSource>(std::move(source));
  }
  TapPlan tap = plan.tap;
  tap.filter = settings.filter;
  BusTap::AtEnd at_end = [this, name = std::string(adapter)](std::int64_t delivered) {
    report_->End(name, delivered);
  };
  if (config_.bus.source == BusPlan::Source::kLive) {
    tap.speed = 1;
    at_end = nullptr;  // nobody knows whether more will come
  }
  return std::make_unique<BusTap>(*clock_, std::move(source), tap, std::move(at_end));
}

std::int32_t Bench::Refuse(std::string_view call, std::string_view why, std::int32_t result) {
  report_->Fault(std::string(call) + ": " + std::string(why));
  return result;
}

void Bench::JudgeRate(std::string_view adapter, std::int32_t bit_rate) {
  const std::int64_t of_bus = config_.bus.bit_rate;
  if (bit_rate == of_bus) return;
  report_->Fault(EscapeText(adapter) + " at " + std::to_string(bit_rate) + " bit/s on a bus of " +
                 std::to_string(of_bus));
}

std::unique_ptr<BusSource> Bench::NewSource() {
  const BusPlan& bus = config_.bus;
  if (bus.source == BusPlan::Source::kLog) {
    return std::make_unique<LogSource>(Recording(), bus.repeat);
  }
  if (bus.source == BusPlan::Source::kLive) return NewLiveSource();
  if (bus.source == BusPlan::Source::kGenerator) return std::make_unique<LoadGenerator>(bus.load);
  return std::make_unique<Vehicle>(bus.load.seed, bus.load.format);
}

std::unique_ptr<BusSource> Bench::NewLiveSource() {
  auto text = std::make_unique<LiveText>(PathFrom(folder_, config_.bus.log));
  const LiveText& counted = *text;  // as long as its source, which tells the counts
  const bool within_line = text->BeginsWithinLine();
  return std::make_unique<LiveSource>(
      std::move(text), within_line, [this, &counted](const LiveCounts& counts) {
        report_->Line("live frames=" + std::to_string(counts.frames) +
                      " refused_lines=" + std::to_string(counts.refused_lines) +
                      " files_passed_over=" + std::to_string(counted.FilesPassedOver()));
      });
}

/// A recording that cannot be read is an empty one: a silent bus. The report tells both as errors.
std::shared_ptr<const CandumpLog> Bench::Recording() {
  if (recording_ != nullptr) return recording_;
  const auto text = ReadWholeFile(PathFrom(folder_, config_.bus.log));
  auto log = ParseCandumpLog(text.value_or(""));
  report_->Line(text ? Told(log) : "error: recording cannot be read");
  recording_ = std::make_shared<const CandumpLog>(std::move(log));
  return recording_;
}

std::unique_ptr<Bench> LoadBench(std::string_view library, const std::filesystem::path& named,
                                 const std::filesystem::path& folder) {
  const std::filesystem::path file = named.empty() ? folder / "tolvane-bench.ini" : named;
  const auto text = ReadWholeFile(file);
  BenchConfig config = text ? ReadBenchConfig(*text) : DefaultBenchConfig();
  const std::filesystem::path base = file.parent_path();
  std::unique_ptr<std::ostream> out;
  if (!config.report.empty()) {
    out = std::make_unique<std::ofstream>(PathFrom(base, config.report),
                                          std::ios::binary | std::ios::app);
  }
  auto report = std::make_unique<Report>(std::move(out), library);
  if (!named.empty() && !text) report->Line("bench file cannot be read");
  return std::make_unique<Bench>(std::move(config), base, std::move(report));
}

}  // namespace tolvane::simulator
