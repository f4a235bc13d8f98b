#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace tolvane::platform::memory {

constexpr std::int32_t kAllBytes = 8;

/// Writes the first `count` data bytes of a frame, at most all, into a caller's record.
inline void WriteBytes(const std::array<std::uint8_t, 8>& from, std::int32_t count,
                       std::array<std::uint8_t, 8>& to) {
  std::copy_n(from.begin(), std::clamp(count, 0, kAllBytes), to.begin());
}

/// The frames in an adapter's queue, played in order a given number of times.
template <typename Record>
class FrameScript {
 public:
  /// Replaces the frames that are left. `times` 0 plays nothing.
  void Play(std::vector<Record> frames, std::int64_t times = 1) {
    frames_ = std::move(frames);
    next_ = 0;
    times_ = frames_.empty() ? 0 : times;
  }

  /// Called in each read: what else the library's code does in the program's thread.
  void OnTake(std::function<void()> handler) { on_take_ = std::move(handler); }

  /// The next frame, null when the queue is empty. Valid until the next Play.
  [[nodiscard]] const Record* Take() {
    if (on_take_) on_take_();
    if (times_ == 0) return nullptr;
    const Record* frame = &frames_[next_];
    if (++next_ == frames_.size()) {
      next_ = 0;
      --times_;
    }
    return frame;
  }

  [[nodiscard]] bool Empty() const { return times_ == 0; }

 private:
  std::vector<Record> frames_;
  std::size_t next_ = 0;
  std::int64_t times_ = 0;
  std::function<void()> on_take_;
};

}  // namespace tolvane::platform::memory
