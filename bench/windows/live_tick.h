#pragma once

#include "platform/windows/system/event_loop.h"
#include "platform/windows/system/support_library.h"
#include "tests/view/tick_bed.h"

namespace tolvane::bench {

/// The program's tick in a run of FormBG, with its timer, event loop and support library, on a
/// table of 11-bit rows with one highlighted byte each.
class LiveTick {
 public:
  LiveTick(std::int16_t rows, platform::Timer& timer, platform::SupportLibrary& qxt100,
           platform::EventLoop& events, platform::RichTextView& view);

  /// Gives every row a frame and highlights its first byte for the next tick.
  void Receive();
  /// One whole tick: compose, colours, swap, paint.
  void Tick() { tick_.TimerBackView_Timer(bed_.device); }
  /// The same without the window: compose and colours.
  void Compose() { tick_without_window_.TimerBackView_Timer(bed_.device); }
  /// The page of the last Compose.
  [[nodiscard]] const platform::RichTextPage& Page() const { return *bed_.view.page; }

 private:
  std::int16_t rows_;
  platform::SupportLibrary& qxt100_;
  double time_ = 0;  // ms on the time line of the frames
  TickBed<WorkerKind::FormBG> bed_;
  tolvane::Tick<CAN_ReadDB> tick_;
  tolvane::Tick<CAN_ReadDB> tick_without_window_;
};

}  // namespace tolvane::bench
