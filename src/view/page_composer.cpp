#include "view/page_composer.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "receive/tables/frame_columns.h"
#include "run/adapter_kind.h"
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

/// The text of a data cell for each byte value: a blank and two digits.
class CellTexts {
 public:
  constexpr CellTexts() {
    for (std::uint32_t value = 0; value < texts_.size(); ++value) {
      texts_[value] = {u' ', HexCharacter(value >> 4), HexCharacter(value)};
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
    if (position % kYieldStep == 0) parts_.events.YieldWhenDue();
    const PageRow line = Rows::At(frames_, position);
    if (!Passes(traits_.text_pass_rows, Frame<Table>::Received(frames_)(line.row))) continue;
    if (OptFunction1::Check_DisableID(line.id, device_) != 0) continue;
    AppendRow(position, line);
  }
  text_.Append(highlights_.DisableID_Status_Buffer);
}

template <typename Table>
void PageComposer<Table>::AppendRow(std::int32_t position, const PageRow& line) {
  PageRows<Table>::AppendID(frames_, position, text_);
  text_.Append(u"  ");
  text_.Append(DecimalText(std::int64_t{Frame<Table>::DLC(frames_)(line.row)}));
  text_.Append(u"  ");
  AppendCells(line);
  AppendPadding(line.row);
  ApplyStopped(line.row);
  AppendCycle(line.row);
}

template <typename Table>
void PageComposer<Table>::AppendCells(const PageRow& line) {
  const MarkersOf markers(line.id, device_);
  const auto cells = static_cast<std::size_t>(ShownBytes(Frame<Table>::DLC(frames_)(line.row)));
  for (std::size_t k = 0; k < cells; ++k) {
    ApplyDataChange(line.row, k);
    if (!markers.Empty()) RecordMarkerStarts(markers, static_cast<std::int32_t>(k) + 1);
    text_.Append(kCellTexts[Frame<Table>::Data[k](frames_)(line.row)]);
  }
  RecordMarkerLengths(markers);
}

template <typename Table>
void PageComposer<Table>::AppendPadding(std::int16_t row) {
  constexpr StringView kBlanks = u"                        ";  // three for each of eight bytes
  const std::size_t dlc = Frame<Table>::DLC(frames_)(row);
  if (dlc < 8) text_.Append(kBlanks.substr(dlc * 3));
}

template <typename Table>
void PageComposer<Table>::AppendCycle(std::int16_t row) {
  const AdapterTraits* adapter = AdapterOfVender(device_.t_select_Vender);
  // Without an adapter kind there is no line end either: the next row continues on the same line.
  if (adapter == nullptr) return;

  const double time = Frame<Table>::ReceivedTime(frames_)(row);
  const double time_old = Frame<Table>::ReceivedTime_old(frames_)(row);
  const std::uint8_t state = Frame<Table>::Received(frames_)(row);
  Currency measured = MeasuredCycle(time - time_old, traits_.cycle);
  if (!adapter->repeats_stamps) measured = WrapRepaired(measured, parts_.Device_Timer_Kind);

  const bool accepted = measured.ten_thousandths > 0 && state == row_state::kMany &&
                        Frame<Table>::ReceivedTime_writting(frames_)(row) == 0;
  const bool same_stamp =
      adapter->repeats_stamps && state == row_state::kMany && measured.ten_thousandths <= 0;
  if (accepted) {
    ApplyLate(row, measured);
  } else if (same_stamp) {
    ApplySameStamp(row);
  }
  text_.Append(kCycleGap);
  if (accepted || same_stamp) {
    text_.Append(StoredCycleText(Frame<Table>::ReceivedTime_Delta(frames_)(row)));
  } else if (state == row_state::kFirst || (time == 0.0 && time_old == 0.0)) {
    text_.Append(u"----");
  } else {
    text_.Append(u"????");
  }
  text_.Append(kUnit);
  text_.Append(kLineEnd);
}

// The old byte changes only with the next frame, so until then each tick sets the counter again;
// after that it counts down.
template <typename Table>
void PageComposer<Table>::ApplyDataChange(std::int16_t row, std::size_t k) {
  auto& counter = Highlight<Table>::d_timerCounter[k](highlights_);
  const bool changed =
      Frame<Table>::Data_old[k](frames_)(row) != Frame<Table>::Data[k](frames_)(row);
  if (!changed && counter(row) <= 0) return;
  counter(row, changed ? device_.t_DataChangeColorTime
                       : highlight_rules::Fallen(counter(row), interval_));
  Highlight<Table>::d_start[k](highlights_)(row, text_.mTextLength + 1);
  Highlight<Table>::d_end[k](highlights_)(row, 2);
}

template <typename Table>
void PageComposer<Table>::ApplyStopped(std::int16_t row) {
  const double stored = Frame<Table>::ReceivedTime_Delta(frames_)(row);
  if (!(stored > 0.0)) return;
  const double last_read = Frame<Table>::ReadTime_old(frames_)(row);
  const bool stopped =
      highlight_rules::IsStopped(tick_time_, last_read, stored, device_.t_MsgBlackout_Ratio);
  Frame<Table>::BlackoutON(frames_)(row, stopped ? 1 : 0);
}

template <typename Table>
void PageComposer<Table>::ApplyLate(std::int16_t row, Currency measured) {
  auto& counter = Highlight<Table>::dt_timerCounter(highlights_);
  auto& stored = Frame<Table>::ReceivedTime_Delta(frames_);
  const double cycle = StoredCycle(measured);
  const bool late = highlight_rules::IsLate(stored(row), cycle, device_.t_MsgLateColor_Ratio);
  // A stopped message keeps a fresh region for its own colour, its counter running on below 0.
  const bool alive = counter(row) > 0 || Frame<Table>::BlackoutON(frames_)(row) == 1;
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
  auto& counter = Highlight<Table>::dt_timerCounter(highlights_);
  if (counter(row) <= 0) return;
  counter(row, highlight_rules::Fallen(counter(row), interval_));
  const double stored = Frame<Table>::ReceivedTime_Delta(frames_)(row);
  SetCycleRegion(row, StoredCycleText(stored).Length());
}

template <typename Table>
void PageComposer<Table>::SetCycleRegion(std::int16_t row, std::size_t digits) {
  Highlight<Table>::dt_start(highlights_)(
      row, text_.mTextLength + static_cast<std::int32_t>(kCycleGap.size()));
  Highlight<Table>::dt_end(highlights_)(row, static_cast<std::int32_t>(digits + kUnit.size()));
}

template <typename Table>
void PageComposer<Table>::RecordMarkerStarts(const MarkersOf& markers, std::int32_t byte) {
  for (const std::int16_t m : markers) {
    if (device_.t_MsgMarkerStartByte(m) != byte) continue;
    Highlight<Table>::MsgMarker_start(highlights_)(m, text_.mTextLength + 1);
  }
}

template <typename Table>
void PageComposer<Table>::RecordMarkerLengths(const MarkersOf& markers) {
  for (const std::int16_t m : markers) {
    Highlight<Table>::MsgMarker_end(highlights_)(
        m, MarkerLength(device_.t_MsgMarkerStartByte(m), device_.t_MsgMarkerEndByte(m)));
  }
}

template class PageComposer<CAN_ReadDB>;
template class PageComposer<CAN_ReadDB29>;

}  // namespace tolvane
