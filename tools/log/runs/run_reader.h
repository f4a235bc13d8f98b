#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "tools/log/reading/csv_log.h"
#include "tools/log/runs/clock_jump.h"
#include "tools/log/runs/complaints.h"
#include "tools/log/runs/log_files.h"
#include "tools/log/runs/log_run.h"
#include "tools/log/runs/stamp_turn.h"

namespace tolvane::logtool {

/// The frames of a run, one file after the other.
class RunReader {
 public:
  /// With `mends_clock` the times behind the adapter's clock jump, or behind the steps of a board's
  /// line, are moved to where the clock was.
  RunReader(const LogRun& run, LogFiles& files, Complaints& complaints, bool mends_clock);

  /// False behind the last frame, and at a fault that ends the reading.
  [[nodiscard]] bool Next(LogFrame& frame);

  /// How far the last frame's time is ahead by the clock's jump or the board's steps; 0 where these
  /// are taken out.
  [[nodiscard]] double Ahead() const { return mends_clock_ ? 0.0 : AheadOfClock(); }
  [[nodiscard]] bool MendsClock() const { return mends_clock_; }
  /// How many were read of each file.
  [[nodiscard]] const std::vector<std::uint64_t>& FramesOfFiles() const { return frames_; }
  /// How many lines of each file were bad.
  [[nodiscard]] const std::vector<std::uint64_t>& FaultsOfFiles() const { return faults_; }
  /// Whether the program began another file behind this one. A bad line was a record too.
  [[nodiscard]] bool IsFull(std::size_t file) const {
    return frames_[file] + faults_[file] >= kRecordsOfFullFile;
  }
  [[nodiscard]] const ClockJump& Clock() const { return clock_; }
  [[nodiscard]] const StampTurn& Stamps() const { return stamps_; }
  /// In which file the stamps first turned, if they did.
  [[nodiscard]] std::size_t FileOfTurn() const { return file_of_turn_; }
  [[nodiscard]] const CsvLog::Mended& WhatWasMended() const { return mended_; }

 private:
  [[nodiscard]] bool OpenFile();
  void CloseFile();
  [[nodiscard]] double AheadOfClock() const { return clock_.Ahead() + stamps_.Ahead(); }

  const LogRun& run_;
  LogFiles& files_;
  Complaints& complaints_;
  bool mends_clock_;
  ClockJump clock_;
  StampTurn stamps_;
  std::size_t file_ = 0;
  std::size_t file_of_turn_ = 0;
  std::vector<std::uint64_t> frames_;
  std::vector<std::uint64_t> faults_;
  std::unique_ptr<ByteSource> bytes_;
  std::unique_ptr<CsvLog> log_;
  CsvLog::Mended mended_;
};

}  // namespace tolvane::logtool
