#pragma once

#include "platform/automation.h"
#include "platform/canlib_library.h"
#include "platform/canusb_library.h"
#include "platform/clipboard.h"
#include "platform/code_page.h"
#include "platform/cursors.h"
#include "platform/event_loop.h"
#include "platform/file_services.h"
#include "platform/ifcan_library.h"
#include "platform/local_time.h"
#include "platform/message_box.h"
#include "platform/run_protection.h"
#include "platform/single_instance.h"
#include "platform/support_library.h"
#include "platform/timer.h"
#include "platform/timer_resolution.h"

namespace tolvane::platform {

/// TimerBackView of each of the four workers.
struct WorkerTimers {
  Timer& FormBG;
  Timer& FormBG2;
  Timer& FormBG_29;
  Timer& FormBG2_29;
};

/// What Form1 and the runs use from outside, built once in the entry point and handed down. The
/// windows are in MainWindow; Shell, HelpWindow, StringResources and the two dialogs for colours
/// and folders are handed by the settings dialogs and the help menu to what uses them.
struct Platform {
  EventLoop& events;
  WorkerTimers timers;
  SupportLibrary& qxt100;
  TimerResolution& winmm;
  CanusbLibrary& canusbdrv;
  IfcanLibrary& IFCan;
  CanlibLibrary& canlib32;
  MessageBox& message_box;
  FileServices& files;
  SpecialFolders& folders;
  WallClock& wall_clock;
  CodePage& code_page;
  AutomationServers& automation;
  Clipboard& clipboard;
  SingleInstance& single_instance;
  Cursors& cursors;
  RunProtection& run_protection;
};

}  // namespace tolvane::platform
