// The program's entry: makes everything from outside once, hands it to Form1, and runs the message
// loop until the main window is unloaded.
#include "platform/windows/automation/automation.h"
#include "platform/windows/automation/call_filter.h"
#include "platform/windows/dialogs/message_box.h"
#include "platform/windows/main_window/form1_binding.h"
#include "platform/windows/main_window/form1_window.h"
#include "platform/windows/rich_text/clipboard.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/file_services.h"
#include "platform/windows/system/process.h"
#include "platform/windows/system/run_protection.h"
#include "platform/windows/system/support_library.h"
#include "platform/windows/system/wall_clock.h"
#include "platform/windows/vendor/vendor_libraries.h"
#include "platform/windows/window_parts/theme.h"
#include "run/adapter_kind.h"
#include "run/stop_message.h"
#include "view/tick.h"

namespace tolvane::platform::windows {
namespace {

/// The thread's single-threaded apartment, for automation.
class Apartment {
 public:
  Apartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() {
    if (entered_) CoUninitialize();
  }

 private:
  bool entered_;
};

/// What holds for the process as a whole, before anything else is loaded or shown.
void PrepareProcess() {
  // A library that cannot be loaded is told by the program, not by a box of the system.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  // No library comes from the current folder. The rest of the search stays: vendors' libraries may
  // rely on it for their own.
  SetDllDirectoryW(L"");
  LoadVisualStyles();
  // A flush may last longer than the 5 s after which a picture of a hung window takes the place of
  // the window.
  DisableProcessWindowsGhosting();
}

/// The stop message of a program that has no window.
void TellNoWindow(EventGate& gate, const String& program_folder) {
  ELM327_Info names(program_folder);
  names.Param_ALL_Clear();
  WindowsMessageBox box(gate, nullptr);
  ShowStopMessage(box, names, u"ウィンドウを作成できません。", kEndsApp);
}

/// What the system does for the program without a window.
struct SystemServices {
  WindowsSingleInstance single_instance;
  WindowsSpecialFolders folders;
  WindowsCodePage code_page;
  WindowsFileServices files{code_page};
  WindowsWallClock wall_clock;
  WindowsAutomationServers automation;
  WindowsCursors cursors;
};

/// The main window, not yet created, with what events come by.
struct WindowParts {
  WindowParts(HINSTANCE instance, CodePage& code_page)
      : splash(instance),
        workers(gate, instance, kViewInterval),
        window(instance, gate, loop, code_page, splash, workers) {}

  EventGate gate;
  WindowsEventLoop loop{gate};
  SplashWindow splash;
  Form1Window::WorkerWindows workers;
  Form1Window window;
};

/// What acts for the created window.
struct WindowServices {
  explicit WindowServices(WindowParts& parts)
      : message_box(parts.gate, parts.window.Hwnd()),
        clipboard(parts.window.Hwnd()),
        run_protection(parts.window.Hwnd()) {}

  WindowsMessageBox message_box;
  WindowsClipboard clipboard;
  WindowsRunProtection run_protection;
};

String LibraryOf(const String& system_folder, AdapterKind kind) {
  return system_folder + u"\\" + String(AdapterTraitsOf(kind).library);
}

/// The libraries that are loaded by their paths.
struct Libraries {
  Libraries(const String& program_folder, const String& system_folder)
      : qxt100(program_folder + String(SupportLibrary::kFileInFolder)),
        winmm(system_folder + u"\\winmm.dll"),
        canusbdrv(LibraryOf(system_folder, AdapterKind::kCanusb)),
        ifcan(LibraryOf(system_folder, AdapterKind::kInterface)),
        canlib32(LibraryOf(system_folder, AdapterKind::kKvaser)) {}

  WindowsSupportLibrary qxt100;
  WindowsTimerResolution winmm;
  WindowsCanusb canusbdrv;
  WindowsIfcan ifcan;
  WindowsCanlib canlib32;
};

Platform PlatformOf(SystemServices& system, WindowParts& parts, WindowServices& services,
                    Libraries& libraries) {
  return {.events = parts.loop,
          .timers = {.FormBG = parts.workers.FormBG,
                     .FormBG2 = parts.workers.FormBG2,
                     .FormBG_29 = parts.workers.FormBG_29,
                     .FormBG2_29 = parts.workers.FormBG2_29},
          .qxt100 = libraries.qxt100,
          .winmm = libraries.winmm,
          .canusbdrv = libraries.canusbdrv,
          .IFCan = libraries.ifcan,
          .canlib32 = libraries.canlib32,
          .message_box = services.message_box,
          .files = system.files,
          .folders = system.folders,
          .wall_clock = system.wall_clock,
          .code_page = system.code_page,
          .automation = system.automation,
          .clipboard = services.clipboard,
          .single_instance = system.single_instance,
          .cursors = system.cursors,
          .run_protection = services.run_protection};
}

/// Form1 on its created window, until that is unloaded.
void RunForm1(const Platform& platform, WindowParts& parts, const String& program_folder,
              HINSTANCE instance, int show_command) {
  Form1 form(platform, parts.window.Face(), program_folder);
  DialogWindows dialogs({instance, parts.gate, parts.loop, parts.window.Hwnd()}, platform.files,
                        form.device, form.mouseCursor);
  parts.window.Attach(&dialogs);
  Form1Binding events(form, dialogs);
  parts.window.Listen(&events);
  // What comes in from outside during the start waits for a yield like anything else.
  parts.gate.Deliver([&form] { form.Form_Load(); });
  if (!parts.loop.Ended()) {
    parts.window.Start(show_command);
    parts.loop.RunUntilEnd();
  }
  parts.window.Listen(nullptr);
}

int Run(HINSTANCE instance, int show_command) {
  PrepareProcess();
  const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&classes);
  const Apartment apartment;
  const CallFilter call_filter;

  SystemServices system;
  const String program_folder = ExecutableFolder();
  WindowParts parts(instance, system.code_page);
  if (!parts.window.CreateHidden()) {
    TellNoWindow(parts.gate, program_folder);
    return 1;
  }
  WindowServices services(parts);
  Libraries libraries(program_folder, system.folders.System());
  const Platform platform = PlatformOf(system, parts, services, libraries);
  RunForm1(platform, parts, program_folder, instance, show_command);
  return 0;
}

}  // namespace
}  // namespace tolvane::platform::windows

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*command_line*/,
                    int show_command) {
  return tolvane::platform::windows::Run(instance, show_command);
}
