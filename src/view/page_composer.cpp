#include "view/page_composer.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "receive/tables/frame_columns.h"
#include "run/number_text.h"
#include "view/highlight_rules.h"
#include "view/measured_cycle.h"
#include "view/optfunction1.h"
#include "view/tables/highlight_columns.h"

namespace tolvane {

namespace {

constexpr std::int32_t kYieldStep = 400;  // positions
constexpr StringView kLineEnd = u"\r\n";
constexpr StringView kUnit = u"ms";
constexpr StringView kCycleGap = u"   ";

/// The text of every data cell: a blank and two digits.
class CellTexts {
 public:
  constexpr CellTexts() {
    constexpr StringView kDigits = u"0123456789ABCDEF";
    for (std::size_t value = 0; value < texts_.size(); ++value) {
      texts_[value] = {u' ', kDigits[value >> 4], kDigits[value & 0xF]};
    }
  }
  [[nodiscard]] constexpr StringView operator[](std::uint8_t value) const {
    return {texts_[value].data(), texts_[value].size()};
  }

 private:
  std::array<std::array<char16_t, 3>, 256> texts_{};
};
constexpr CellTexts kCellTexts;

template <typename Table>
using Frame = FrameColumns<Table>;
template <typename Table>
using Highlight = HighlightColumns<typename ViewTableOf<Table>::Type>;

}  // namespace

template <typename Table>
PageComposer<Table>::PageComposer(const TickTraits& traits, const TickParts& parts,
                                  const ELM327_Info& device, double tick_time, Table& frames,
                                  ViewTable& highlights, StringBuilder& text)
    : traits_(traits),
      parts_(parts),
      device_(device),
      tick_time_(tick_time),
      interval_(parts.TimerBackView.Interval()),
      frames_(frames),
      highlights_(highlights),
      text_(text) {}

template <typename Table>
void PageComposer<Table>::Compose() {
  using Rows = PageRows<Table>;
  text_.Append(Rows::kHeader);
  for (std::int32_t position = Rows::kFirst; position < Rows::End(frames_); ++position) {
    if (position % kYieldStep == 0) parts_.events.YieldToEvents();
    const PageRow line = Rows::At(frames_, position);
    if (!Passes(traits_.text_pass_rows, (frames_.*Frame<Table>::Received)(line.row))) continue;
    if (OptFunction1::Check_DisableID(line.id, device_) != 0) continue;
    AppendRow(position, line);
  }
  text_.Append(highlights_.DisableID_Status_Buffer);
}

template <typename Table>
void PageComposer<Table>::AppendRow(std::int32_t position, const PageRow& line) {
  PageRows<Table>::AppendID(frames_, position, text_);
  text_.Append(u"  ");
  text_.Append(DecimalText(std::int64_t{(frames_.*Frame<Table>::DLC)(line.row)}));
  text_.Append(u"  ");
  AppendCells(line);
  AppendPadding(line.row);
  ApplyStopped(line.row);
  AppendCycle(line.row);
}

template <typename Table>
void PageComposer<Table>::AppendCells(const PageRow& line) {
  const MarkersOf markers(line.id, device_);
  const auto cells = static_cast<std::size_t>(ShownBytes((frames_.*Frame<Table>::DLC)(line.row)));
  for (std::size_t k = 0; k < cells; ++k) {
    ApplyDataChange(line.row, k);
    if (!markers.Empty()) RecordMarkerStarts(markers, static_cast<std::int32_t>(k) + 1);
    text_.Append(kCellTexts[(frames_.*Frame<Table>::Data[k])(line.row)]);
  }
  RecordMarkerLengths(markers);
}

template <typename Table>
void PageComposer<Table>::AppendPadding(std::int16_t row) {
  constexpr StringView kBlanks = u"                        ";  // three for each of eight bytes
  const std::size_t dlc = (frames_.*Frame<Table>::DLC)(row);
  if (dlc < 8) text_.Append(kBlanks.substr(dlc * 3));
}

template <typename Table>
void PageComposer<Table>::AppendCycle(std::int16_t row) {
  const std::int32_t vender = device_.t_select_Vender;
  // Without an adapter kind the next row goes on in the same line.
  if (vender < kVenderCanusb || vender > kVenderKvaser) return;

  const double time = (frames_.*Frame<Table>::ReceivedTime)(row);
  const double time_old = (frames_.*Frame<Table>::ReceivedTime_old)(row);
  const std::uint8_t state = (frames_.*Frame<Table>::Received)(row);
  Currency measured = MeasuredCycle(time - time_old, traits_.cycle);
  if (vender != kVenderInterface) measured = WrapRepaired(measured, parts_.Device_Timer_Kind);

  const bool accepted = measured.ten_thousandths > 0 && state == row_state::kMany &&
                        (frames_.*Frame<Table>::ReceivedTime_writting)(row) == 0;
  // Its frames are stamped with the system's clock, so two of them may bear one stamp.
  const bool same_stamp =
      vender == kVenderInterface && state == row_state::kMany && measured.ten_thousandths <= 0;
  if (accepted) {
    ApplyLate(row, measured);
  } else if (same_stamp) {
    ApplySameStamp(row);
  }
  text_.Append(kCycleGap);
  if (accepted || same_stamp) {
    text_.Append(StoredCycleText((frames_.*Frame<Table>::ReceivedTime_Delta)(row)));
  } else if (state == row_state::kFirst || (time == 0.0 && time_old == 0.0)) {
    text_.Append(u"----");
  } else {
    text_.Append(u"????");
  }
  text_.Append(kUnit);
  text_.Append(kLineEnd);
}

// The old byte changes with the next frame only, so the counter is armed again at each tick until
// then and falls from there on.
template <typename Table>
void PageComposer<Table>::ApplyDataChange(std::int16_t row, std::size_t k) {
  auto& counter = highlights_.*Highlight<Table>::d_timerCounter[k];
  const bool changed =
      (frames_.*Frame<Table>::Data_old[k])(row) != (frames_.*Frame<Table>::Data[k])(row);
  if (!changed && counter(row) <= 0) return;
  counter(row, changed ? device_.t_DataChangeColorTime
                       : highlight_rules::Fallen(counter(row), interval_));
  (highlights_.*Highlight<Table>::d_start[k])(row, text_.mTextLength + 1);
  (highlights_.*Highlight<Table>::d_end[k])(row, 2);
}

template <typename Table>
void PageComposer<Table>::ApplyStopped(std::int16_t row) {
  const double stored = (frames_.*Frame<Table>::ReceivedTime_Delta)(row);
  if (!(stored > 0.0)) return;
  const double last_read = (frames_.*Frame<Table>::ReadTime_old)(row);
  const bool stopped =
      highlight_rules::IsStopped(tick_time_, last_read, stored, device_.t_MsgBlackout_Ratio);
  (frames_.*Frame<Table>::BlackoutON)(row, stopped ? 1 : 0);
}

template <typename Table>
void PageComposer<Table>::ApplyLate(std::int16_t row, Currency measured) {
  auto& counter = highlights_.*Highlight<Table>::dt_timerCounter;
  auto& stored = frames_.*Frame<Table>::ReceivedTime_Delta;
  const double cycle = StoredCycle(measured);
  const bool late = highlight_rules::IsLate(stored(row), cycle, device_.t_MsgLateColor_Ratio);
  // A stopped message keeps a fresh region for its own colour, its counter running on below 0.
  const bool alive = counter(row) > 0 || (frames_.*Frame<Table>::BlackoutON)(row) == 1;
  if (late) {
    counter(row, device_.t_MsgLateColor_Time);
  } else if (alive) {
    counter(row, highlight_rules::Fallen(counter(row), interval_));
  }
  if (late || alive) SetCycleRegion(row, DecimalText(measured).Length());
  stored(row, cycle);
}

template <typename Table>
void PageComposer<Table>::ApplySameStamp(std::int16_t row) {
  auto& counter = highlights_.*Highlight<Table>::dt_timerCounter;
  if (counter(row) <= 0) return;
  counter(row, highlight_rules::Fallen(counter(row), interval_));
  const double stored = (frames_.*Frame<Table>::ReceivedTime_Delta)(row);
  SetCycleRegion(row, StoredCycleText(stored).Length());
}

template <typename Table>
void PageComposer<Table>::SetCycleRegion(std::int16_t row, std::size_t digits) {
  (highlights_.*Highlight<Table>::dt_start)(
      row, text_.mTextLength + static_cast<std::int32_t>(kCycleGap.size()));
  (highlights_.*Highlight<Table>::dt_end)(row, static_cast<std::int32_t>(digits + kUnit.size()));
}

template <typename Table>
void PageComposer<Table>::RecordMarkerStarts(const MarkersOf& markers, std::int32_t byte) {
  for (const std::int16_t m : markers) {
    if (device_.t_MsgMarkerStartByte(m) != byte) continue;
    (highlights_.*Highlight<Table>::MsgMarker_start)(m, text_.mTextLength + 1);
  }
}

template <typename Table>
void PageComposer<Table>::RecordMarkerLengths(const MarkersOf& markers) {
  for (const std::int16_t m : markers) {
    (highlights_.*Highlight<Table>::MsgMarker_end)(
        m, MarkerLength(device_.t_MsgMarkerStartByte(m), device_.t_MsgMarkerEndByte(m)));
  }
}

template class PageComposer<CAN_ReadDB>;
template class PageComposer<CAN_ReadDB29>;

}  // namespace tolvane
