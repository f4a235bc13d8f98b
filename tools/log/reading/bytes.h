#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace tolvane::logtool {

/// Where bytes come from, one after the other.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  /// Fills the beginning of `room` and says how much of it: 0 at the end alone. Empty when the
  /// reading failed.
  [[nodiscard]] virtual std::optional<std::size_t> Read(std::span<char> room) = 0;
  /// Goes to the last `bytes` of them, or to the beginning if there are fewer. False if it cannot.
  [[nodiscard]] virtual bool SkipToLast(std::size_t bytes) = 0;
};

/// Where bytes go to.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  /// False when not all of them could be written.
  [[nodiscard]] virtual bool Write(std::string_view bytes) = 0;
};

/// Takes everything and keeps nothing.
class NoSink final : public ByteSink {
 public:
  bool Write(std::string_view) override { return true; }
};

}  // namespace tolvane::logtool
