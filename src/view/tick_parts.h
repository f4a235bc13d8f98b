#pragma once

#include <cstdint>

#include "platform/event_loop.h"
#include "platform/rich_text_view.h"
#include "platform/support_library.h"
#include "platform/timer.h"
#include "receive/tables/can_readdb.h"
#include "receive/tables/can_readdb29.h"
#include "run/elm327_info.h"
#include "view/tables/can_viewdb.h"
#include "view/tables/can_viewdb29.h"

namespace tolvane {

/// What a tick uses of its worker and of the main window. Less than Platform and MainWindow, as a
/// page can then be built and measured with these alone.
struct TickParts {
  platform::Timer& TimerBackView;
  platform::SupportLibrary& qxt100;
  platform::EventLoop& events;
  platform::RichTextView& RTB_MainView;
  const std::int32_t& RxFlag;
  const std::int32_t& Device_Timer_Kind;
};

/// The highlight table that belongs to a frame table.
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

// Rows and markers of a highlight table are those of its frames and of the settings.
static_assert(CAN_ViewDB::kArayy_MAX == CAN_ReadDB::kArayy_MAX);
static_assert(CAN_ViewDB29::kArayy_MAX == CAN_ReadDB29::kArayy_MAX);
static_assert(CAN_ViewDB::kMarker_MAX == kSettingRows - 1);
static_assert(CAN_ViewDB29::kMarker_MAX == kSettingRows - 1);

}  // namespace tolvane
