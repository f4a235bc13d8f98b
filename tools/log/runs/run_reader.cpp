#include "tools/log/runs/run_reader.h"

namespace tolvane::logtool {

RunReader::RunReader(const LogRun& run, LogFiles& files, Complaints& complaints, bool mends_clock)
    : run_(run),
      files_(files),
      complaints_(complaints),
      mends_clock_(mends_clock),
      clock_(ClockWrapOf(run.Head())),
      stamps_(HasSignedStamps(run.Head())),
      frames_(run.files.size()),
      faults_(run.files.size()) {}

bool RunReader::Next(LogFrame& frame) {
  while (log_ != nullptr || OpenFile()) {
    switch (log_->Next(frame)) {
      case CsvLog::Outcome::kFrame:
        ++frames_[file_];
        clock_.Follow(frame.time);
        if (stamps_.Follow(frame.time)) file_of_turn_ = file_;
        if (mends_clock_) frame.time -= AheadOfClock();
        return true;
      case CsvLog::Outcome::kFault:
        ++faults_[file_];
        complaints_.Tell(run_.files[file_].path, log_->Line(), log_->Fault());
        if (complaints_.EndReading()) return false;
        if (!log_->IsBroken()) break;
        [[fallthrough]];
      case CsvLog::Outcome::kEnd:
        CloseFile();
    }
  }
  return false;
}

bool RunReader::OpenFile() {
  for (; file_ < run_.files.size(); ++file_) {
    const std::string& path = run_.files[file_].path;
    bytes_ = files_.Open(path).bytes;
    if (bytes_ != nullptr) {
      log_ = std::make_unique<CsvLog>(*bytes_);
      if (log_->ReadHead()) return true;
      log_.reset();
    }
    complaints_.Tell(path, 0, "this file has changed and cannot be read any more");
    if (complaints_.EndReading()) return false;
  }
  return false;
}

void RunReader::CloseFile() {
  mended_ += log_->WhatWasMended();
  log_.reset();
  ++file_;
}

}  // namespace tolvane::logtool
