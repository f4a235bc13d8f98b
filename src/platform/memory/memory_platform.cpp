#include "platform/memory/memory_platform.h"

namespace tolvane::platform::memory {

platform::Platform MemoryPlatform::Platform() {
  return {.events = events,
          .timers = {.FormBG = FormBG,
                     .FormBG2 = FormBG2,
                     .FormBG_29 = FormBG_29,
                     .FormBG2_29 = FormBG2_29},
          .qxt100 = qxt100,
          .winmm = winmm,
          .canusbdrv = canusbdrv,
          .IFCan = IFCan,
          .canlib32 = canlib32,
          .message_box = message_box,
          .files = files,
          .folders = folders,
          .wall_clock = wall_clock,
          .code_page = code_page,
          .automation = automation,
          .clipboard = clipboard,
          .single_instance = single_instance,
          .cursors = cursors,
          .run_protection = run_protection};
}

}  // namespace tolvane::platform::memory
