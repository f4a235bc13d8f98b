#include "view/page_colours.h"

#include "receive/tables/frame_columns.h"
#include "view/message_marker.h"
#include "view/optfunction1.h"
#include "view/page_rows.h"
#include "view/tables/highlight_columns.h"
#include "view/tick_traits.h"

namespace tolvane {

template <typename Table>
void PageColours<Table>::Paint() {
  using Rows = PageRows<Table>;
  for (std::int32_t position = Rows::kFirst; position < Rows::End(frames_); ++position) {
    const PageRow line = Rows::At(frames_, position);
    if (!Passes(RowTest::kReceived, FrameColumns<Table>::Received(frames_)(line.row))) continue;
    if (OptFunction1::Check_DisableID(line.id, device_) != 0) continue;
    if (device_.t_DataChangeColorEnable == 1) PaintBytes(line.row);
    PaintCycle(line.row);
    PaintMarkers(line.id);
  }
}

template <typename Table>
void PageColours<Table>::PaintBytes(std::int16_t row) {
  using Highlight = HighlightColumns<ViewTable>;
  const auto bytes = static_cast<std::size_t>(ShownBytes(FrameColumns<Table>::DLC(frames_)(row)));
  for (std::size_t k = 0; k < bytes; ++k) {
    const std::int32_t counter = Highlight::d_timerCounter[k](highlights_)(row);
    if (counter <= 0) continue;
    Select(Highlight::d_start[k](highlights_)(row), Highlight::d_end[k](highlights_)(row));
    RTB_MainView_Back_.SelColor(qxt100_.ColorAttenuation(device_.t_DataChangeColor, counter,
                                                         device_.t_DataChangeColorTime));
  }
}

// A stopped message has its own colour or, when that is switched off, none; never the late one.
template <typename Table>
void PageColours<Table>::PaintCycle(std::int16_t row) {
  using Highlight = HighlightColumns<ViewTable>;
  const std::uint8_t stopped = FrameColumns<Table>::BlackoutON(frames_)(row);
  const std::int32_t counter = Highlight::dt_timerCounter(highlights_)(row);
  const bool late = device_.t_MsgLateColorEnable == 1 && counter > 0 && stopped == 0;
  if (!late && !(device_.t_MsgBlackout_Enable == 1 && stopped == 1)) return;
  Select(Highlight::dt_start(highlights_)(row), Highlight::dt_end(highlights_)(row));
  RTB_MainView_Back_.SelColor(
      late ? qxt100_.ColorAttenuation(device_.t_MsgLateColor, counter, device_.t_MsgLateColor_Time)
           : device_.t_MsgBlackout_Color);
}

template <typename Table>
void PageColours<Table>::PaintMarkers(std::int32_t id) {
  using Highlight = HighlightColumns<ViewTable>;
  for (const std::int16_t m : MarkersOf(id, device_)) {
    Select(Highlight::MsgMarker_start(highlights_)(m), Highlight::MsgMarker_end(highlights_)(m));
    RTB_MainView_Back_.Back_Set_Char_Effect(device_.t_MsgMarkerColor(m));
  }
}

template <typename Table>
void PageColours<Table>::Select(std::int32_t start, std::int32_t length) {
  RTB_MainView_Back_.SelStart(start);
  RTB_MainView_Back_.SelLength(length);
}

template class PageColours<CAN_ReadDB>;
template class PageColours<CAN_ReadDB29>;

}  // namespace tolvane
