#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tolvane::platform::memory {

/// The frames that an adapter's queue holds, played in order, as often as told.
template <typename Record>
class FrameScript {
 public:
  /// Replaces whatever is left. `times` 0 plays nothing.
  void Play(std::vector<Record> frames, std::int64_t times = 1) {
    frames_ = std::move(frames);
    next_ = 0;
    times_ = frames_.empty() ? 0 : times;
  }

  /// The next frame, null when the queue is empty. Valid until the next Play.
  [[nodiscard]] const Record* Take() {
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
};

}  // namespace tolvane::platform::memory
