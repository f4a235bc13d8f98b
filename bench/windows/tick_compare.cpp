// tick_compare QXT100-DLL ROUNDS: measures the live tick in the program's main window and, in the
// same run, the rich-edit baseline with the same page. Prints lines of a name, a tab and a number;
// times are medians in microseconds.
#include <cstdio>
#include <cstdlib>

#include "bench/windows/live_tick.h"
#include "bench/windows/rich_edit_baseline.h"
#include "bench/windows/rounds.h"
#include "platform/windows/main_window/form1_window.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/text.h"

namespace tolvane::bench {
namespace {

using namespace platform::windows;

constexpr std::int16_t kRows = 2000;
constexpr int kLiveTicksPerRound = 40;

/// How long `work` takes until the display has what it drew.
template <typename Work>
double DrawnMicroseconds(Work work) {
  return Microseconds([&work] {
    work();
    GdiFlush();
  });
}

/// One tick of the baseline on `page`; 0 when it could not be made or shows something else.
double BaselineTick(HWND like, platform::CodePage& code_page, WindowsEventLoop& loop,
                    const platform::RichTextPage& page) {
  RichEditBaseline baseline(code_page);
  if (!baseline.Create(like)) return 0;
  baseline.Prepare(page);
  loop.YieldToEvents();
  const double time = DrawnMicroseconds([&baseline] { baseline.Tick(); });
  return baseline.Shows(page) ? time : 0;
}

int Compare(const wchar_t* library, int rounds) {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  platform::EventGate gate;
  WindowsEventLoop loop(gate);
  WindowsCodePage code_page;
  SplashWindow splash(instance);
  Form1Window::WorkerWindows workers(gate, instance, kViewInterval);
  Form1Window window(instance, gate, loop, code_page, splash, workers);
  WindowsSupportLibrary qxt100{String(FromWide(library, std::wcslen(library)))};
  if (!qxt100.Load() || !window.CreateHidden()) return EXIT_FAILURE;
  window.Start(SW_SHOW);
  platform::RichTextView& view = window.Face().RTB_MainView;
  view.Locked(true);
  LiveTick live(kRows, workers.FormBG, qxt100, loop, view);

  std::vector<double> live_ticks;
  std::vector<double> compositions;
  std::vector<double> baseline_ticks;
  for (int round = 0; round < rounds; ++round) {
    loop.YieldToEvents();
    for (int i = 0; i < kLiveTicksPerRound; ++i) {
      live.Receive();
      live_ticks.push_back(DrawnMicroseconds([&live] { live.Tick(); }));
      live.Receive();
      compositions.push_back(DrawnMicroseconds([&live] { live.Compose(); }));
    }
    baseline_ticks.push_back(BaselineTick(window.Hwnd(), code_page, loop, live.Page()));
    if (view.Text() != live.Page().text || baseline_ticks.back() == 0) return EXIT_FAILURE;
  }
  const platform::RichTextPage& page = live.Page();
  std::printf("rows\t%d\n", static_cast<int>(kRows));
  std::printf("characters\t%zu\n", page.text.size());
  std::printf("regions\t%zu\n", page.colours.Runs().size());
  std::printf("live_ticks\t%zu\n", live_ticks.size());
  std::printf("live_tick\t%.0f\n", Median(live_ticks));
  std::printf("live_compose\t%.0f\n", Median(compositions));
  std::printf("baseline_ticks\t%zu\n", baseline_ticks.size());
  std::printf("baseline_tick\t%.0f\n", Median(baseline_ticks));
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace tolvane::bench

int wmain(int count, wchar_t** arguments) {
  using namespace tolvane::bench;
  return MeasureInRounds(count, arguments, "tick_compare", "QXT100-DLL", Compare);
}
