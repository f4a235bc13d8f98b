#pragma once

#include <cstdint>
#include <memory>

#include "platform/event_loop.h"
#include "platform/rich_text_page.h"
#include "platform/rich_text_view.h"
#include "platform/support_library.h"
#include "platform/timer.h"
#include "receive/can_readdb.h"
#include "receive/can_readdb29.h"
#include "run/elm327_info.h"
#include "run/worker_kind.h"
#include "view/can_viewdb.h"
#include "view/can_viewdb29.h"
#include "view/stringbuilder.h"

namespace tolvane {

/// What a tick uses of its worker and of the main window.
struct TickParts {
  ELM327_Info& device;
  platform::Timer& TimerBackView;
  platform::SupportLibrary& qxt100;
  platform::EventLoop& events;
  platform::RichTextView& RTB_MainView;
  const std::int32_t& RxFlag;
  const std::int32_t& Device_Timer_Kind;
};

template <typename Table>
struct ViewTableOf;
template <>
struct ViewTableOf<CAN_ReadDB> {
  using Type = CAN_ViewDB;
};
template <>
struct ViewTableOf<CAN_ReadDB29> {
  using Type = CAN_ViewDB29;
};

/// One worker's view of its frame table: composes the page, colours it and swaps it into
/// RTB_MainView at each tick of the timer.
template <typename Table>
class Tick {
 public:
  using ViewTable = typename ViewTableOf<Table>::Type;

  Tick(WorkerKind worker, const TickParts& parts, Table& frames, ViewTable& highlights);

  /// One tick. Yields up to five times over a full page of 11-bit rows; the timer is off meanwhile.
  void TimerBackView_Timer();

 private:
  WorkerKind worker_;
  TickParts parts_;
  Table& frames_;
  ViewTable& highlights_;
  StringBuilder text_;
  std::unique_ptr<platform::RichTextPage> RTB_MainView_Back_;
};

extern template class Tick<CAN_ReadDB>;
extern template class Tick<CAN_ReadDB29>;

}  // namespace tolvane
