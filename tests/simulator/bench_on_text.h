#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "simulator/bench.h"
#include "tests/helpers/bench_faults.h"

namespace tolvane::simulator {

/// A bench made of texts, with a clock that the test moves, in a folder of its own.
class BenchOnText {
 public:
  BenchOnText() {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::temp_directory_path() /
              ("tolvane-bench-" + std::string(test->test_suite_name()) + "-" + test->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~BenchOnText() {
    std::error_code ignored;  // a file that is still open keeps the folder, on Windows alone
    std::filesystem::remove_all(folder_, ignored);
  }
  BenchOnText(const BenchOnText&) = delete;
  BenchOnText& operator=(const BenchOnText&) = delete;

  /// `log` becomes the file bus.log.
  std::unique_ptr<Bench> Make(const std::string& library, const std::string& ini,
                              const std::string& log) {
    if (!log.empty()) std::ofstream(folder_ / "bus.log", std::ios::binary) << log;
    auto out = std::make_unique<std::ofstream>(folder_ / "report.txt", std::ios::binary);
    return std::make_unique<Bench>(ReadBenchConfig(ini), folder_,
                                   std::make_unique<Report>(std::move(out), library),
                                   std::make_unique<SharedClock>(now_us_));
  }

  /// Writes behind what the file of the bench's folder holds.
  void Append(const std::string& file, const std::string& text) const {
    std::ofstream(folder_ / file, std::ios::binary | std::ios::app) << text;
  }

  void Advance(std::int64_t by_us) { *now_us_ += by_us; }

  /// As far as it is written.
  std::string ReportText() const {
    std::ifstream file(folder_ / "report.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// The wrong calls in the report so far, without the library's name.
  tolvane::Faults Faults() const { return FaultsOf(ReportText()); }

 private:
  class SharedClock : public BenchClock {
   public:
    explicit SharedClock(std::shared_ptr<std::int64_t> now_us) : now_us_(std::move(now_us)) {}
    std::int64_t NowUs() override { return *now_us_; }

   private:
    std::shared_ptr<std::int64_t> now_us_;
  };

  std::filesystem::path folder_;
  std::shared_ptr<std::int64_t> now_us_ = std::make_shared<std::int64_t>(0);
};

}  // namespace tolvane::simulator
