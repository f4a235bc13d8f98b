#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/memory/system/file_system.h"
#include "platform/string.h"

namespace tolvane::faults {

/// A frame by its number since the adapter went on the bus, which its data bytes hold, the lowest
/// first.
using FrameNumber = std::int32_t;

/// Which frames the logs of a run must hold, by what the program accepted and which of its files
/// were written. The channels take turns: each keeps what a failed file held back for its next one,
/// but the rows of a workbook are filled anew from the first one on. At the end of the session a
/// run with workbooks writes csv files too.
class WrittenLogs {
 public:
  enum class Form : std::uint8_t { kNone, kCsv, kWorkbook };

  explicit WrittenLogs(const platform::memory::FileSystem& files) : files_(files) {}

  /// Lay on the disk before the program started.
  void Keep(StringView path) { bytes_[String(path)] = files_.Bytes(path).value_or(""); }
  void BeginRun(Form form);
  void Accepted(FrameNumber frame);
  /// A file is about to be made of the channel that was filled, and the other one is filled.
  void BeginFile();
  /// A file has been written whole; it is not looked at again if it is no log.
  void Written(StringView path);
  /// A workbook with these frames has been saved; the program clears its table once it is closed.
  void Saved(StringView path, const std::vector<FrameNumber>& frames);
  void ClosedWorkbook();

  /// Frames that the run has taken.
  [[nodiscard]] FrameNumber Accepted() const { return accepted_; }

  /// What is wrong: frames that are missing, and files that were written over later. Frames that
  /// no file holds, because one failed and no other followed it, are missing too unless
  /// `may_hold_back`.
  [[nodiscard]] std::vector<std::string> Complaints(bool may_hold_back) const;

  /// Which frame a hexadecimal text of eight bytes with a separator between them holds, the lowest
  /// byte first; -1 for any other text.
  static FrameNumber NumberOf(std::string_view bytes);

 private:
  /// For each frame of this run, whether it stands in a file.
  [[nodiscard]] std::vector<bool> Found() const;
  void MoveToFiles(std::vector<FrameNumber>& channel);

  const platform::memory::FileSystem& files_;
  Form form_ = Form::kNone;
  FrameNumber accepted_ = 0;
  std::array<std::vector<FrameNumber>, 2> channels_;  // what the next file of each must hold
  std::size_t current_ = 0;
  std::size_t flushed_ = 0;
  std::size_t row_ = 0;                  // of a workbook's table
  std::vector<FrameNumber> due_;         // must stand in the files of this run
  std::vector<FrameNumber> in_books_;    // stand in the workbooks of this run
  std::vector<String> of_run_;           // its files
  std::map<String, std::string> bytes_;  // of all files that must stay as they are
};

}  // namespace tolvane::faults
