#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/rich_text_view.h"
#include "receive/adapters/canusb_binding.h"
#include "receive/store_frame.h"
#include "receive/tables/frame_columns.h"
#include "receive/tables/frame_table_of.h"
#include "run/elm327_info.h"
#include "view/tables/can_viewdb.h"
#include "view/tables/can_viewdb29.h"
#include "view/tick.h"

namespace tolvane::platform {

inline void PrintTo(const ColourRun& run, std::ostream* out) {
  *out << run.start << " to " << run.end << " in " << run.colour;
}

}  // namespace tolvane::platform

namespace tolvane {

/// The order of what a tick does outside its tables.
using TickCalls = std::vector<std::string>;

class BedTimer final : public platform::Timer {
 public:
  explicit BedTimer(TickCalls& calls) : calls_(calls) {}
  [[nodiscard]] bool Enabled() const override { return enabled_; }
  void Enabled(bool enabled) override {
    enabled_ = enabled;
    calls_.emplace_back(enabled ? "timer on" : "timer off");
  }
  [[nodiscard]] std::int32_t Interval() const override { return interval; }
  void OnTick(std::function<void()>) override {}

  std::int32_t interval = kViewInterval;

 private:
  TickCalls& calls_;
  bool enabled_ = true;
};

/// A clock that a test sets, and a fade whose colour is the remaining time, so that a
/// paint list shows the counters.
class BedSupport final : public platform::SupportLibrary {
 public:
  struct Fade {
    std::int32_t colour, remaining, total;
    friend bool operator==(const Fade&, const Fade&) = default;
  };

  explicit BedSupport(TickCalls& calls) : calls_(calls) {}
  [[nodiscard]] bool Load() override { return true; }
  [[nodiscard]] double qx_timeGetTime() override {
    calls_.emplace_back("clock");
    return now;
  }
  [[nodiscard]] std::int32_t ColorAttenuation(std::int32_t colour, std::int32_t remaining,
                                              std::int32_t total) override {
    if (keep_fades) fades.push_back({colour, remaining, total});
    return remaining;
  }

  double now = 0.0;
  bool keep_fades = true;
  std::vector<Fade> fades;

 private:
  TickCalls& calls_;
};

class BedEvents final : public platform::EventLoop {
 public:
  explicit BedEvents(TickCalls& calls) : calls_(calls) {}
  void YieldToEvents() override {
    calls_.emplace_back("yield");
    if (during_yield) during_yield();
  }
  std::function<void()> during_yield;

 private:
  TickCalls& calls_;
};

/// Takes the swapped page; nothing else of the view is a tick's business.
class BedView final : public platform::RichTextView {
 public:
  explicit BedView(TickCalls& calls) : calls_(calls) {}
  void SwapPage(std::unique_ptr<platform::RichTextPage>& next) override {
    calls_.emplace_back("swap");
    page.swap(next);
  }
  void Refresh() override { calls_.emplace_back("refresh"); }

  [[nodiscard]] String Text() const override { return page->text; }
  void Text(StringView) override { Unexpected("Text"); }
  [[nodiscard]] String TextRTF() const override { return {}; }
  void SelStart(std::int32_t) override { Unexpected("SelStart"); }
  [[nodiscard]] std::int32_t SelLength() const override { return 0; }
  void SelLength(std::int32_t) override { Unexpected("SelLength"); }
  void SelColor(std::int32_t) override { Unexpected("SelColor"); }
  void SelBackColor(std::int32_t) override { Unexpected("SelBackColor"); }
  [[nodiscard]] String SelText() const override { return {}; }
  void SelText(StringView) override { Unexpected("SelText"); }
  [[nodiscard]] String SelRTF() const override { return {}; }
  [[nodiscard]] bool Locked() const override { return true; }
  void Locked(bool) override { Unexpected("Locked"); }
  void ScrollToEnd() override { Unexpected("ScrollToEnd"); }
  void PlainCompositionColours() override { Unexpected("PlainCompositionColours"); }
  [[nodiscard]] bool CanUndo() const override { return false; }
  void Undo() override { Unexpected("Undo"); }
  [[nodiscard]] bool SaveFile(StringView, FileFormat) override { return false; }
  [[nodiscard]] bool LoadFile(StringView) override { return false; }

  std::unique_ptr<platform::RichTextPage> page = std::make_unique<platform::RichTextPage>();

 private:
  void Unexpected(const char* operation) { calls_.emplace_back(operation); }
  TickCalls& calls_;
};

using Bytes8 = std::array<std::uint8_t, 8>;

// Flags of a frame as a CANUSB adapter gives them.
constexpr std::uint8_t kStandard = 0;
constexpr std::uint8_t kRemote = 64;  // makes a new key each time
constexpr std::uint8_t kExtended = 128;

/// One worker's tables and its tick, on a simulated main window, as a CANUSB run starts it.
template <WorkerKind kKind>
class TickBed {
 public:
  using Table = typename FrameTableOf<kKind>::Type;
  using ViewTable = typename ViewTableOf<Table>::Type;
  static constexpr bool kIs29 = std::is_same_v<Table, CAN_ReadDB29>;

  TickBed() {
    device.Param_ALL_Clear();
    device.t_select_Vender = kVenderCanusb;
    frames->Param_ALL_Clear();
    highlights->Param_ALL_Clear();
  }

  /// One accepted frame of the message time `time`, in ms, as the receive loop stores it; its row.
  /// The flags matter to a table of 29 bits alone.
  std::int16_t Receive(std::int32_t id, std::uint8_t dlc, const Bytes8& data, double time,
                       std::uint8_t flags = kExtended) {
    time_.Message_Time = time;
    clock_.now = support.now;
    const ReceivedFrame frame{
        .can_DATA = data, .id = id, .can_DLC = dlc, .key = CanusbBinding::KeyFlagsOf(flags)};
    const FrameSlot slot = slots_.SlotOf(*frames, frame);
    StoreInSlot(*frames, slot, frame, time_, 0.0, without_timer_, clock_);
    return slot.row;
  }

  /// One tick; the page's text.
  const String& Page() {
    tick.TimerBackView_Timer(device);
    return view.page->text;
  }
  [[nodiscard]] const std::vector<platform::ColourRun>& Colours() const {
    return view.page->colours.Runs();
  }
  [[nodiscard]] const std::vector<platform::ColourRun>& Backgrounds() const {
    return view.page->backgrounds.Runs();
  }

  TickCalls calls;
  ELM327_Info device{u"C:\\Tolvane"};
  BedTimer timer{calls};
  BedSupport support{calls};
  BedEvents events{calls};
  BedView view{calls};
  std::int32_t RxFlag = 1;
  std::int32_t Device_Timer_Kind = kVenderCanusb;
  std::unique_ptr<Table> frames = std::make_unique<Table>();
  std::unique_ptr<ViewTable> highlights = std::make_unique<ViewTable>();
  Tick<Table> tick{
      kKind, {timer, support, events, view, RxFlag, Device_Timer_Kind}, *frames, *highlights};

 private:
  /// A timer mode that no dialog offers leaves the time line where it is.
  static ELM327_Info WithoutTimer() {
    ELM327_Info device(u"C:\\Tolvane");
    device.t_Timer_Mode = -1;
    return device;
  }

  TickCalls clock_calls_;
  BedSupport clock_{clock_calls_};  // the receive loop reads it, outside the tick
  ELM327_Info without_timer_ = WithoutTimer();
  TimeLine time_;
  SlotFinder<Table> slots_;
};

}  // namespace tolvane
