#pragma once

#include "platform/event_gate.h"
#include "platform/main_window.h"
#include "platform/memory/automation/automation.h"
#include "platform/memory/dialogs/message_box.h"
#include "platform/memory/main_window/main_window.h"
#include "platform/memory/main_window/timer.h"
#include "platform/memory/rich_text/clipboard.h"
#include "platform/memory/rich_text/rich_text_view.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/cursors.h"
#include "platform/memory/system/event_loop.h"
#include "platform/memory/system/file_system.h"
#include "platform/memory/system/journal.h"
#include "platform/memory/system/run_protection.h"
#include "platform/memory/system/single_instance.h"
#include "platform/memory/system/special_folders.h"
#include "platform/memory/system/support_library.h"
#include "platform/memory/system/timer_resolution.h"
#include "platform/memory/system/wall_clock.h"
#include "platform/memory/vendor/canlib_library.h"
#include "platform/memory/vendor/canusb_library.h"
#include "platform/memory/vendor/ifcan_library.h"
#include "platform/platform.h"

namespace tolvane::platform::memory {

/// A machine in memory: what Platform and MainWindow name; help window and dialogs are made by
/// those who use them. One journal takes in turn what is done to windows, message boxes, timers,
/// the adapters' libraries, clipboard and automation; disk, clocks, qxt100 and the like keep none,
/// and are looked at themselves. The disk is empty; the clock stands at 9:07:03 of the first Monday
/// of 2026. The references given out live as long as this object.
class MemoryPlatform {
 public:
  [[nodiscard]] platform::Platform Platform();
  [[nodiscard]] platform::MainWindow MainWindow() { return window.Face(RTB_MainView); }

  static constexpr LocalTime kFirstMonday = {
      .year = 2026, .month = 1, .day = 5, .weekday = 1, .hour = 9, .minute = 7, .second = 3};

  Journal journal;
  EventGate gate;
  EventLoop events{gate};
  Timer FormBG{journal, gate, "FormBG.TimerBackView"};
  Timer FormBG2{journal, gate, "FormBG2.TimerBackView"};
  Timer FormBG_29{journal, gate, "FormBG_29.TimerBackView"};
  Timer FormBG2_29{journal, gate, "FormBG2_29.TimerBackView"};
  SupportLibrary qxt100;
  TimerResolution winmm{journal};
  CanusbLibrary canusbdrv{journal};
  IfcanLibrary IFCan{journal};
  CanlibLibrary canlib32{journal};
  MessageBox message_box{journal, gate};
  CodePage932 code_page;
  FileSystem files{code_page};
  SpecialFolders folders{u"C:\\Users\\tester\\Desktop", u"C:\\Windows\\System32"};
  WallClock wall_clock{kFirstMonday};
  AutomationServers automation{journal};
  Clipboard clipboard{journal};
  SingleInstance single_instance;
  Cursors cursors;
  RunProtection run_protection;
  memory::MainWindow window{journal};
  RichTextView RTB_MainView{journal, files};
};

}  // namespace tolvane::platform::memory
