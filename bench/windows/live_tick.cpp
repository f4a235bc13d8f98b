#include "bench/windows/live_tick.h"

#include "view/tables/highlight_columns.h"
#include "view/tick_traits.h"

namespace tolvane::bench {
namespace {

constexpr double kCycle = 100;       // ms
constexpr std::int32_t kLit = 3000;  // ms for which a byte stays highlighted
constexpr Bytes8 kData = {0x08, 0x91, 0xA2, 0xB3, 0xC4, 0xD5, 0xE6, 0xF7};

}  // namespace

template <WorkerKind kKind>
LiveTick<kKind>::LiveTick(std::int16_t rows, platform::Timer& timer,
                          platform::SupportLibrary& qxt100, platform::EventLoop& events,
                          platform::RichTextView& view)
    : rows_(rows),
      qxt100_(qxt100),
      view_(view),
      tick_(kKind, {timer, qxt100, events, view, bed_.RxFlag, bed_.Device_Timer_Kind}, *bed_.frames,
            *bed_.highlights),
      tick_without_window_(kKind,
                           {timer, qxt100, events, bed_.view, bed_.RxFlag, bed_.Device_Timer_Kind},
                           *bed_.frames, *bed_.highlights) {
  for (int i = 0; i < 3; ++i) Receive();
}

template <WorkerKind kKind>
void LiveTick<kKind>::Receive() {
  using Highlight = HighlightColumns<typename Bed::ViewTable>;
  time_ += kCycle;
  bed_.support.now = qxt100_.qx_timeGetTime();
  bed_.calls.clear();
  for (std::int16_t id = 1; id <= rows_; ++id) {
    const std::int16_t row = bed_.Receive(id, 8, kData, time_);
    Highlight::d_timerCounter[0] (*bed_.highlights)(row, kLit);
  }
}

template <WorkerKind kKind>
void LiveTick<kKind>::Tick() {
  tick_.TimerBackView_Timer(bed_.device);
  if (!TickTraitsOf(kKind).refresh) view_.Refresh();
}

template class LiveTick<WorkerKind::FormBG>;
template class LiveTick<WorkerKind::FormBG_29>;

}  // namespace tolvane::bench
