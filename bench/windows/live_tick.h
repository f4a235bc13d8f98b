#pragma once

#include "platform/windows/system/event_loop.h"
#include "platform/windows/system/support_library.h"
#include "tests/view/tick_bed.h"

namespace tolvane::bench {

/// The program's tick in a run, with its timer, event loop and support library, on a table of rows
/// with one highlighted byte each.
template <WorkerKind kKind>
class LiveTick {
 public:
  LiveTick(std::int16_t rows, platform::Timer& timer, platform::SupportLibrary& qxt100,
           platform::EventLoop& events, platform::RichTextView& view);

  /// As a run does ahead of its first tick.
  void TakeMemory() { tick_.TakeMemory(); }
  /// Gives every row a frame and highlights its first byte for the next tick.
  void Receive();
  /// One whole tick: compose, colours, swap, paint.
  void Tick();
  /// The same without the window: compose and colours.
  void Compose() { tick_without_window_.TimerBackView_Timer(bed_.device); }
  /// The page of the last Compose.
  [[nodiscard]] const platform::RichTextPage& Page() const { return *bed_.view.page; }

 private:
  using Bed = TickBed<kKind>;

  std::int16_t rows_;
  platform::SupportLibrary& qxt100_;
  platform::RichTextView& view_;
  double time_ = 0;  // ms on the time line of the frames
  Bed bed_;
  tolvane::Tick<typename Bed::Table> tick_;
  tolvane::Tick<typename Bed::Table> tick_without_window_;
};

extern template class LiveTick<WorkerKind::FormBG>;
extern template class LiveTick<WorkerKind::FormBG_29>;

}  // namespace tolvane::bench
