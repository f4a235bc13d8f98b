#pragma once

#include <cstdint>

#include "platform/string.h"
#include "run/column.h"
#include "run/elm327_info.h"
#include "view/message_marker.h"
#include "view/page_rows.h"
#include "view/tables/stringbuilder.h"
#include "view/tick_parts.h"
#include "view/tick_traits.h"

namespace tolvane {

/// The text pass of one tick: composes the page and records in the highlight table the position of
/// each coloured region.
template <typename Table>
class PageComposer {
 public:
  using ViewTable = typename ViewTableOf<Table>::Type;

  /// `tick_time` is qx_timeGetTime at the start of the tick; all tests on silence use it.
  PageComposer(const TickTraits& traits, const TickParts& parts, const ELM327_Info& device,
               double tick_time, Table& frames, ViewTable& highlights, StringBuilder& text);

  /// Appends header, rows and foot. Yields before every four-hundredth position.
  void Compose();

 private:
  void AppendRow(std::int32_t position, const PageRow& line);
  void AppendCells(const PageRow& line);
  void AppendPadding(std::int16_t row);
  void AppendCycle(std::int16_t row);

  void ApplyDataChange(std::int16_t row, std::size_t k);
  void ApplyStopped(std::int16_t row);
  void ApplyLate(std::int16_t row, Currency measured);
  void ApplySameStamp(std::int16_t row);
  void SetCycleRegion(std::int16_t row, std::size_t digits);
  void RecordMarkerStarts(const MarkersOf& markers, std::int32_t byte);
  void RecordMarkerLengths(const MarkersOf& markers);

  const TickTraits& traits_;
  const TickParts& parts_;
  const ELM327_Info& device_;
  const double tick_time_;
  const std::int32_t interval_;  // ms, what a counter loses in one tick
  Table& frames_;
  ViewTable& highlights_;
  StringBuilder& text_;
};

extern template class PageComposer<CAN_ReadDB>;
extern template class PageComposer<CAN_ReadDB29>;

}  // namespace tolvane
