// A run in the real window: connect, live page, disconnect.
#include <climits>
#include <fstream>
#include <string>

#include "tests/window/control_ids.h"
#include "tests/window/window_fixture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

constexpr std::wstring_view kHeader = L"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";

class Run : public RealProgram {
 protected:
  DrivenWindow StartOn(std::string_view ini) {
    PlugIn(ini, {L"canusbdrv.dll"});
    const DrivenWindow window = StartProgram();
    WaitUntil([&] { return window.Enabled(id::Bt_Connect); });
    return window;
  }

  /// The first call of that name in the libraries' report, empty when there was none.
  std::string FirstCall(std::string_view name) const {
    const std::string report = bench_->Report();
    const std::size_t at = report.find(std::string(name) + "(");
    return at == std::string::npos ? "" : report.substr(at, report.find('\n', at) - at);
  }
};

TEST_F(Run, ChangesEveryControlAndPutsTheWindowBack) {
  const DrivenWindow window = StartOn(kOneCanusb);
  ASSERT_TRUE(window.Exists());
  ASSERT_NO_FATAL_FAILURE(Connect(window));
  EXPECT_EQ(State(window), ConnectedState());
  EXPECT_TRUE(window.HasFocus(id::TB_Status));

  EXPECT_TRUE(WaitForLines(window, 30));
  const std::wstring page = window.Text(id::RTB_MainView);
  EXPECT_TRUE(page.starts_with(kHeader)) << Utf8(page.substr(0, 200));
  KeepPicture(window.Handle(), "connected");

  window.Close();
  window.Command(id::menu_file_close);
  // The page goes on, so the two have been looked at.
  EXPECT_TRUE(WaitUntil([&] { return window.Text(id::RTB_MainView) != page; }));
  EXPECT_TRUE(window.Exists());
  EXPECT_EQ(State(window), ConnectedState());

  ASSERT_NO_FATAL_FAILURE(Disconnect(window));
  EXPECT_EQ(State(window), IdleState());
  EXPECT_TRUE(window.Text(id::RTB_MainView).starts_with(kHeader));
  KeepPicture(window.Handle(), "after");

  ASSERT_TRUE(window.Click(id::Bt_ViewClear));
  EXPECT_EQ(window.Text(id::RTB_MainView), L"");
  window.Close();
  EXPECT_EQ(program_->WaitForEnd(), 0u);
  EXPECT_EQ(FirstCall("canusb_getFirstAdapter").substr(0, 22), "canusb_getFirstAdapter");
}

TEST_F(Run, ShowsEachIdentifierOnItsLineWithItsLastBytesAndCycle) {
  std::ofstream(folder_.Path() / L"frames.log", std::ios::binary)
      << "(0.000000) can0 1A0#0000000000000000\n"
         "(0.100000) can0 1A0#0102030405060708\n"
         "(0.100000) can0 00F#0AA0\n"
         "(0.120000) can0 000#FF\n"
         "(0.150000) can0 7FF#\n"
         "(0.200000) can0 7FF#\n"
         "(0.300000) can0 7FF#\n";
  const DrivenWindow window = StartOn("[canusb 1]\n[bus]\nsource = log\nlog = frames.log\n");
  ASSERT_TRUE(window.Exists());
  ASSERT_NO_FATAL_FAILURE(Connect(window));

  const std::wstring expected = std::wstring(kHeader) + L"00F  2   0A A0" + std::wstring(18, L' ') +
                                L"   ----ms\r\n"
                                L"1A0  8   01 02 03 04 05 06 07 08   100ms\r\n"
                                L"7FF  0  " +
                                std::wstring(24, L' ') + L"   100ms\r\n";
  EXPECT_TRUE(WaitUntil([&] { return window.Text(id::RTB_MainView) == expected; }))
      << Utf8(window.Text(id::RTB_MainView));
  KeepPicture(window.Handle(), "page");
  ASSERT_NO_FATAL_FAILURE(Disconnect(window));
  EXPECT_EQ(window.Text(id::RTB_MainView), expected);
}

TEST_F(Run, TheViewTicksEvery30Milliseconds) {
  // One line: a period is the interval and the length of a tick.
  std::ofstream(folder_.Path() / L"frames.log", std::ios::binary) << "(0.000000) can0 123#00\n";
  const DrivenWindow window = StartOn("[canusb 1]\n[bus]\nsource = log\nlog = frames.log\n");
  ASSERT_TRUE(window.Exists());
  ASSERT_NO_FATAL_FAILURE(Connect(window));
  const TickProbe probe(OwnFolder() / L"tolvane_probe.dll", window.Handle());
  // A busy machine makes a period longer, and none shorter.
  constexpr long kInterval = 30'000;  // us
  EXPECT_TRUE(WaitUntil([&] {
    return probe.Ticks() >= 100 && probe.ShortestPeriod().value_or(LONG_MAX) < kInterval + 4'000;
  })) << probe.Ticks()
      << " ticks, the shortest period " << probe.ShortestPeriod().value_or(0) << " us";
  EXPECT_GE(probe.ShortestPeriod().value_or(0), kInterval - 1'000);
  ASSERT_NO_FATAL_FAILURE(Disconnect(window));
  window.Close();
  EXPECT_EQ(program_->WaitForEnd(), 0u);
}

/// While it lives, a thread of another process stands still, and what is posted to it waits.
class StandingThread {
 public:
  explicit StandingThread(DWORD id) : thread_(OpenThread(THREAD_SUSPEND_RESUME, FALSE, id)) {
    SuspendThread(thread_);
  }
  ~StandingThread() {
    ResumeThread(thread_);
    CloseHandle(thread_);
  }
  StandingThread(const StandingThread&) = delete;
  StandingThread& operator=(const StandingThread&) = delete;

 private:
  HANDLE thread_;
};

TEST_F(Run, DoesNotStartOnceTheWindowCloses) {
  const DrivenWindow window = StartOn(kOneCanusb);
  ASSERT_TRUE(window.Exists());
  {
    const StandingThread program(GetWindowThreadProcessId(window.Handle(), nullptr));
    window.Close();
    PostMessageW(window.Control(id::Bt_Connect), BM_CLICK, 0, 0);
    window.Command(id::menu_common_setting);
    window.Command(id::menu_help_version);
  }
  EXPECT_EQ(program_->WaitForEnd(), 0u);
}

}  // namespace
}  // namespace tolvane::window
