#pragma once

#include <cstdint>
#include <functional>

#include "logging/excel_outputdb.h"
#include "platform/canlib_library.h"
#include "platform/canusb_library.h"
#include "platform/controls.h"
#include "platform/event_loop.h"
#include "platform/ifcan_library.h"
#include "platform/message_box.h"
#include "platform/rich_text_view.h"
#include "platform/support_library.h"
#include "platform/timer_resolution.h"
#include "run/elm327_info.h"

namespace tolvane {

/// What a worker uses of the main window and of the outside; it knows nothing else of them. All of
/// it outlives the workers.
struct RunParts {
  ELM327_Info& device;   // the settings that a tick reads, the same as those given to a run
  std::int32_t& RxFlag;  // 1 while the run is wanted
  /// Filled by a run that logs, as long as it holds records: writes them for a process that is
  /// about to be ended. Yields to nobody, so it may be called from below any yield of the run,
  /// which then writes nothing more.
  std::function<void()>& Session_End_Output;
  platform::ComboBox& Cmb_Serect_Device;
  platform::TextBox& TB_ODB_Hard_Version;
  platform::TextBox& TB_Protocol;
  platform::TextBox& TB_Status;
  platform::RichTextView& RTB_MainView;
  platform::MessageBox& message_box;
  platform::EventLoop& events;
  platform::SupportLibrary& qxt100;
  platform::TimerResolution& winmm;
  platform::CanusbLibrary& canusbdrv;
  platform::IfcanLibrary& IFCan;
  platform::CanlibLibrary& canlib32;
  LogServices log;
};

}  // namespace tolvane
