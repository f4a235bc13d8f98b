#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "tools/log/reading/bytes.h"

namespace tolvane::logtool {

/// The lines of a file, read in large blocks. A line that a block's end cuts is moved to the front
/// of the room, so no line is ever copied but that one.
class LineSource {
 public:
  /// No line may be longer. That takes the zeros of seven channels, which a 29-bit log collects
  /// ahead of a line while its files cannot be written.
  static constexpr std::size_t kLine_MAX = std::size_t{1} << 20;

  enum class Outcome { kLine, kEnd, kTooLong, kUnreadable };

  explicit LineSource(ByteSource& bytes) : bytes_(bytes), room_(kBlock) {}

  /// The next line, without its LF or CR LF; valid until the next call. The last one may have no
  /// line end. Of a line that is too long nothing is given, and the next call goes on behind it.
  [[nodiscard]] Outcome Next(std::string_view& line);

 private:
  [[nodiscard]] Outcome NextOfRefilled(std::string_view& line);
  [[nodiscard]] bool Refill();
  void Take(std::size_t end, std::string_view& line);

  static constexpr std::size_t kBlock = std::size_t{1} << 16;

  ByteSource& bytes_;
  std::vector<char> room_;  // a block, and more once a line does not fit
  std::size_t begin_ = 0;   // of what is in the room and was not given
  std::size_t end_ = 0;
  bool at_end_ = false;
  bool skips_ = false;  // the rest of a line that is too long
};

}  // namespace tolvane::logtool
