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

int Run(HINSTANCE instance, int show_command) {
  PrepareProcess();
  const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&classes);
  const Apartment apartment;
  const CallFilter call_filter;

  WindowsSingleInstance single_instance;
  WindowsSpecialFolders folders;
  const String program_folder = ExecutableFolder();
  const String system_folder = folders.System();

  EventGate gate;
  WindowsEventLoop loop(gate);
  WindowsCodePage code_page;
  WindowsFileServices files(code_page);
  SplashWindow splash(instance);
  Form1Window::WorkerWindows workers(gate, instance, kViewInterval);
  Form1Window window(instance, gate, loop, code_page, splash, workers);
  if (!window.CreateHidden()) {
    TellNoWindow(gate, program_folder);
    return 1;
  }

  WindowsSupportLibrary qxt100(program_folder + String(SupportLibrary::kFileInFolder));
  WindowsTimerResolution winmm(system_folder + u"\\winmm.dll");
  const auto library_of = [&system_folder](AdapterKind kind) {
    return system_folder + u"\\" + String(AdapterTraitsOf(kind).library);
  };
  WindowsCanusb canusbdrv(library_of(AdapterKind::kCanusb));
  WindowsIfcan ifcan(library_of(AdapterKind::kInterface));
  WindowsCanlib canlib32(library_of(AdapterKind::kKvaser));
  WindowsMessageBox message_box(gate, window.Hwnd());
  WindowsWallClock wall_clock;
  WindowsAutomationServers automation;
  WindowsClipboard clipboard(window.Hwnd());
  WindowsCursors cursors;
  WindowsRunProtection run_protection(window.Hwnd());
  const Platform platform{.events = loop,
                          .timers = {.FormBG = workers.FormBG,
                                     .FormBG2 = workers.FormBG2,
                                     .FormBG_29 = workers.FormBG_29,
                                     .FormBG2_29 = workers.FormBG2_29},
                          .qxt100 = qxt100,
                          .winmm = winmm,
                          .canusbdrv = canusbdrv,
                          .IFCan = ifcan,
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

  Form1 form(platform, window.Face(), program_folder);
  DialogWindows dialogs({instance, gate, loop, window.Hwnd()}, files, form.device,
                        form.mouseCursor);
  window.Attach(&dialogs);
  Form1Binding events(form, dialogs);
  window.Listen(&events);
  // What comes in from outside during the start waits for a yield like anything else.
  gate.Deliver([&form] { form.Form_Load(); });
  if (!loop.Ended()) {
    window.Start(show_command);
    loop.RunUntilEnd();
  }
  window.Listen(nullptr);
  return 0;
}

}  // namespace
}  // namespace tolvane::platform::windows

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*command_line*/,
                    int show_command) {
  return tolvane::platform::windows::Run(instance, show_command);
}
