// tick_compare QXT100-DLL ROUNDS: measures the live tick in the program's main window and, in the
// same run, the rich-edit baseline with the same page; the first tick of a run, over an empty page
// and over that of the run before; and ticks of the longest page and of one that the window shows
// whole, each beside its composition alone, without the window. Prints lines of a name, a tab and a
// number; times are medians in microseconds, but first_tick_empty happens once.
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
constexpr std::int16_t kMostRows = CAN_ReadDB29::kArayy_MAX + 1;
constexpr std::int16_t kFittingRows = 20;
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

/// Of a page in the run, in microseconds.
struct PageTimes {
  std::vector<double> ticks;
  std::vector<double> compositions;
};

struct Times {
  double first_tick_empty = 0;
  PageTimes live;
  PageTimes longest;
  PageTimes fitting;
  std::vector<double> first_ticks;
  std::vector<double> baseline_ticks;
};

void Print(const char* page, PageTimes& times) {
  std::printf("%s_tick\t%.0f\n", page, Median(times.ticks));
  std::printf("%s_compose\t%.0f\n", page, Median(times.compositions));
}

void Print(Times& times, const platform::RichTextPage& page) {
  std::printf("rows\t%d\n", static_cast<int>(kRows));
  std::printf("characters\t%zu\n", page.text.size());
  std::printf("regions\t%zu\n", page.colours.Runs().size());
  std::printf("live_ticks\t%zu\n", times.live.ticks.size());
  Print("live", times.live);
  std::printf("longest_rows\t%d\n", static_cast<int>(kMostRows));
  Print("longest", times.longest);
  std::printf("fitting_rows\t%d\n", static_cast<int>(kFittingRows));
  Print("fitting", times.fitting);
  std::printf("first_tick_empty\t%.0f\n", times.first_tick_empty);
  std::printf("first_tick_full\t%.0f\n", Median(times.first_ticks));
  std::printf("baseline_ticks\t%zu\n", times.baseline_ticks.size());
  std::printf("baseline_tick\t%.0f\n", Median(times.baseline_ticks));
}

template <WorkerKind kKind>
void TickInTheRun(LiveTick<kKind>& live, PageTimes& times) {
  for (int i = 0; i < kLiveTicksPerRound; ++i) {
    live.Receive();
    times.ticks.push_back(DrawnMicroseconds([&live] { live.Tick(); }));
  }
  for (int i = 0; i < kLiveTicksPerRound; ++i) {
    live.Receive();
    times.compositions.push_back(Microseconds([&live] { live.Compose(); }));
  }
}

/// The first tick of a run over what the view shows.
double FirstTick(platform::RichTextView& view, LiveTick<WorkerKind::FormBG>& live) {
  view.Locked(true);
  live.TakeMemory();
  return DrawnMicroseconds([&live] { live.Tick(); });
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
  LiveTick<WorkerKind::FormBG> live(kRows, workers.FormBG, qxt100, loop, view);
  LiveTick<WorkerKind::FormBG_29> longest(kMostRows, workers.FormBG_29, qxt100, loop, view);
  LiveTick<WorkerKind::FormBG> fitting(kFittingRows, workers.FormBG, qxt100, loop, view);
  loop.YieldToEvents();

  Times times;
  times.first_tick_empty = FirstTick(view, live);
  for (int round = 0; round < rounds; ++round) {
    loop.YieldToEvents();
    TickInTheRun(fitting, times.fitting);
    TickInTheRun(longest, times.longest);
    TickInTheRun(live, times.live);
    view.Locked(false);
    loop.YieldToEvents();
    times.first_ticks.push_back(FirstTick(view, live));
    times.baseline_ticks.push_back(BaselineTick(window.Hwnd(), code_page, loop, live.Page()));
    if (view.Text() != live.Page().text || times.baseline_ticks.back() == 0) return EXIT_FAILURE;
  }
  Print(times, live.Page());
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace tolvane::bench

int wmain(int count, wchar_t** arguments) {
  using namespace tolvane::bench;
  return MeasureInRounds(count, arguments, "tick_compare", "QXT100-DLL", Compare);
}
