#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace tolvane::simulator {

/// Text that grows while it is read. Behind what was there at first, no byte comes twice.
class GrowingText {
 public:
  virtual ~GrowingText() = default;

  /// Takes what has come, up to `size` bytes; 0 when nothing has. Never waits for more.
  virtual std::size_t Read(char* to, std::size_t size) = 0;
};

/// The text that another program writes into files: `path`.1, and after at least `segment` bytes,
/// where a line ends, `path`.2 and so on. Begins where the last of them ends at the construction.
/// Old files may disappear; those that went unread are passed over.
class LiveText : public GrowingText {
 public:
  static constexpr std::int64_t kSegment = 8'388'608;

  explicit LiveText(std::filesystem::path path, std::int64_t segment = kSegment);

  std::size_t Read(char* to, std::size_t size) override;

  /// Whether the text begins within a line, whose end is no line of its own.
  [[nodiscard]] bool BeginsWithinLine() const { return within_line_; }
  [[nodiscard]] std::int64_t FilesPassedOver() const { return passed_over_; }

 private:
  [[nodiscard]] std::filesystem::path File(std::int64_t number) const;
  /// The lowest or the highest number of a file from `least` on, 0 when there is none.
  [[nodiscard]] std::int64_t Number(std::int64_t least, bool highest) const;
  bool Open(std::int64_t number);
  std::size_t ReadFile(char* to, std::size_t size);

  std::filesystem::path path_;
  std::int64_t segment_;
  std::int64_t number_ = 0;  // of the open file
  std::int64_t place_ = 0;   // in it
  bool line_ended_ = true;   // there
  bool within_line_ = false;
  std::int64_t passed_over_ = 0;
  std::ifstream file_;
};

}  // namespace tolvane::simulator
