#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "platform/utf8.h"
#include "tests/bench_run/bench_program.h"
#include "tests/helpers/bench_faults.h"

namespace tolvane::bench_run {

enum Kind : std::int16_t { kCanusb, kInterface, kKvaser };  // and lines of the device list
inline constexpr std::array kKinds{kCanusb, kInterface, kKvaser};
inline constexpr const char* kKindNames[]{"Canusb", "Interface", "Kvaser"};
/// What the report calls the adapter.
inline constexpr const char* kAdapterNames[]{"TV100001", "IFCAN1", "channel0"};

using Lines = std::vector<std::string>;

/// Ten frames a second with identifier 123, whose two bytes count them from 0.
inline constexpr const char* kTenPerSecond =
    "[bus]\nsource=generator\nrate=10\nids=1\nfirst_id=0x123\npayload=2\n";

inline std::string HexByte(int n) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  return {kDigits[n / 16 % 16], kDigits[n % 16]};
}

/// A line of a log in the 11-bit form.
inline std::string LogLine(std::string time, const std::string& rest) {
  if (time.size() < 10) time.insert(0, 10 - time.size(), ' ');
  return time + " , " + rest;
}
inline std::string LogLine(std::int64_t time, const std::string& rest) {
  return LogLine(std::to_string(time), rest);
}

/// The log's line of frame n of kTenPerSecond, n below 256.
template <typename Time>
std::string LogLine(Time time, int n) {
  return LogLine(time, "123 , 2 ,  " + HexByte(n) + ",00");
}

/// The records of a log, after its eight header lines.
inline Lines Records(const std::string& log) {
  Lines lines;
  for (std::size_t at = 0, end; (end = log.find("\r\n", at)) != std::string::npos; at = end + 2) {
    lines.push_back(log.substr(at, end - at));
  }
  lines.erase(lines.begin(), lines.begin() + std::min<std::ptrdiff_t>(8, std::ssize(lines)));
  return lines;
}

/// The program with one adapter of each kind, whose csv log is on. Each read takes 1 ms.
/// Faults that a program's calls make fail its test, once it has ended, unless they stand in
/// `expected_faults_`.
class BenchRun : public testing::Test {
 protected:
  void TearDown() override { EndProgram(); }

  /// Starts the program on the bench file, to which the adapters are added, and selects one. One
  /// that runs already is ended.
  void Start(const std::string& ini, Kind kind) {
    EndProgram();
    program_.emplace(ini + "\n[canusb 1]\n[interface 1]\n[kvaser 0]\n",
                     Pauses{.read_us = 1'000, .tick_us = 0, .flush_us = 0}, report_);
    program_->Start();
    program_->Device().t_LogSave_Enable = 1;
    program_->Device().t_LogSaveFormat = kLogFormatCsv;
    program_->Select(kind);
  }

  /// One run; the records of its log.
  Lines Run(std::int64_t length_ms) {
    program_->Run(length_ms * 1000);
    const std::vector<std::string> logs = program_->Logs();
    return logs.empty() ? Lines{} : Records(logs.back());
  }

  [[nodiscard]] bool Reported(const std::string& text) const {
    return report_.str().find(text) != std::string::npos;
  }
  [[nodiscard]] std::string Page() const { return ToUtf8(program_->Page()); }

  std::stringbuf report_;  // of this program
  std::optional<BenchProgram> program_;
  Faults expected_faults_;  // of this program

 private:
  void EndProgram() {
    program_.reset();
    EXPECT_EQ(FaultsOf(report_.str()), expected_faults_);
    report_.str("");
    expected_faults_.clear();
  }
};

/// A test for each kind of adapter.
class EachKind : public BenchRun, public testing::WithParamInterface<Kind> {};

}  // namespace tolvane::bench_run
