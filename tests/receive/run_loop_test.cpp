#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

constexpr auto kCanusb = AdapterKind::kCanusb;
constexpr auto kFormBG = WorkerKind::FormBG;

TEST(Yields, OnceForAnEmptyReadAndNeverWhileFramesWait) {
  RunBench bench;
  bench.Play(kCanusb, {{.id = 0x10}, {.id = 0x11}}, 1000);
  bench.Run(kCanusb, kFormBG);
  EXPECT_EQ(bench.loop.Yields(), 1);
  EXPECT_EQ(bench.qxt100.Reads(), 2000);
}

TEST(Yields, OnceForEachRejectedFrame) {
  for (const AdapterKind binding : kAllBindings) {
    RunBench bench;
    const auto go_on = [] {};
    bench.events = {go_on, go_on, go_on};
    bench.Run(binding, kFormBG, {{.id = 0x800}, {.id = 0x10}, {.id = 0x10, .extended = true}});
    EXPECT_EQ(bench.loop.Yields(), 4);  // two rejected, two empty
  }
}

TEST(Yields, OnceForAFrameThatTheFormatFilterRejects) {
  RunBench bench;
  bench.device.t_MsgFmtTyp = 1;
  bench.events = {[] {}};
  bench.Run(AdapterKind::kInterface, WorkerKind::FormBG2_29, {{.id = 0x10}});
  EXPECT_EQ(bench.loop.Yields(), 2);
}

TEST(Disconnect, WaitsUntilTheQueueHasRunEmpty) {
  RunBench bench;
  bench.Play(kCanusb, {{.id = 0x10}}, 500);
  bench.events = {[&] { bench.RxFlag = 0; }};
  bench.Run(kCanusb, kFormBG);
  EXPECT_EQ(bench.qxt100.Reads(), 500);
}

TEST(Disconnect, IsSeenOnlyAtTheTopOfAPass) {
  RunBench bench;
  bench.LogToCsv();
  bench.Play(kCanusb, {{.id = 0x10}, {.id = 0x11}});
  bench.qxt100.OnRead([&] { bench.RxFlag = 0; });  // in the middle of the first frame
  bench.Run(kCanusb, kFormBG);
  EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_Received(0x10), 3);
  EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_Received(0x11), 0);
  EXPECT_EQ(bench.Records(), "         0 , 010 , 8 ,  01,02,03,04,05,06,07,08\r\n");
}

TEST(Disconnect, AnyFlagButOneEndsTheLoop) {
  for (const std::int32_t flag : {0, 2, -1}) {
    RunBench bench;
    bench.events = {[&] { bench.RxFlag = flag; }};
    bench.Run(kCanusb, kFormBG);
    EXPECT_EQ(bench.loop.Yields(), 1);
    EXPECT_EQ(bench.RxFlag, 0);
  }
}

TEST(Ticks, GoOnWhenTheSystemHadNoTimerToGive) {
  RunBench bench;
  // What a refused timer leaves behind.
  const auto refuse = [&] { bench.timers[0].Enabled(false); };
  std::vector<bool> before;
  const auto look = [&] { before.push_back(bench.timers[0].Enabled()); };
  bench.events = {refuse, look, [&] {
                    refuse();
                    bench.RxFlag = 0;
                  }};
  bench.Run(kCanusb, kFormBG);
  EXPECT_EQ(before, std::vector{true});
  EXPECT_FALSE(bench.timers[0].Enabled()) << "it is left on behind the run";
}

TEST(Ticks, RunInsideAYieldAndShowTheTable) {
  RunBench bench;
  String page;
  bench.events = {[&] {
    bench.timers[0].Tick();
    page = bench.RTB_MainView.Text();
    bench.RxFlag = 0;
  }};
  bench.Run(kCanusb, kFormBG, {{.id = 0x123, .dlc = 2}});
  EXPECT_NE(page.find(u"123"), String::npos);
  EXPECT_EQ(bench.RTB_MainView.Swaps(), 1);
}

TEST(Ticks, EachWorkerHasItsOwnTimer) {
  for (const WorkerKind kind : kAllWorkers) {
    RunBench bench;
    std::vector<bool> enabled;
    bench.events = {[&] {
      for (const auto& timer : bench.timers) enabled.push_back(timer.Enabled());
      bench.RxFlag = 0;
    }};
    bench.Run(kCanusb, kind);
    std::vector<bool> expected(4, false);
    expected[static_cast<std::size_t>(kind)] = true;
    EXPECT_EQ(enabled, expected);
  }
}

TEST(Settings, AreReadAfreshForEveryFrame) {
  RunBench bench;
  bench.LogToCsv();
  bench.device.t_LogSave_Enable = 0;
  const auto set_log = [&](std::int32_t enable, std::int32_t time) {
    return [&bench, enable, time] {
      bench.device.t_LogSave_Enable = enable;
      bench.Play(kCanusb, {{.id = 0x10, .time = time}});
    };
  };
  bench.events = {set_log(1, 110), set_log(0, 120), set_log(2, 130), set_log(1, 140)};
  // Logging is off at the start, so no header is made; the records go to the builder anyway.
  bench.Run(kCanusb, kFormBG, {{.id = 0x10, .time = 100}});
  EXPECT_EQ(bench.Log().substr(bench.Log().find("        10")),
            "        10 , 010 , 8 ,  01,02,03,04,05,06,07,08\r\n"
            "        40 , 010 , 8 ,  01,02,03,04,05,06,07,08\r\n");
}

TEST(Logs, FinalHalfIsWrittenThoughEmpty) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      RunBench bench;
      bench.LogToCsv();
      bench.Run(binding, worker);
      EXPECT_EQ(bench.Records(), "") << WayName(binding, worker);
    }
  }
}

TEST(Logs, FormatThatIsNeitherGetsRecordsButNoHeader) {
  RunBench bench;
  bench.device.t_LogSave_Enable = 1;
  bench.device.t_LogSaveFormat = 3;
  bench.events = {[&] {
    bench.device.t_LogSaveFormat = 2;  // so that the final flush shows what was collected
    bench.RxFlag = 0;
  }};
  bench.Run(kCanusb, kFormBG, {{.id = 0x10}});
  EXPECT_EQ(bench.Log(), "2026/11/20 9:05:07         0 , 010 , 8 ,  01,02,03,04,05,06,07,08\r\n");
}

TEST(Logs, GetTheDlcAsTheAdapterReportedIt) {
  const struct {
    AdapterKind binding;
    std::int32_t dlc;
    const char* text;
  } kCases[] = {{kCanusb, 255, "255"},
                {AdapterKind::kInterface, 0x1208, "4616"},
                {AdapterKind::kKvaser, 15, "15"},
                {AdapterKind::kKvaser, 4616, "4616"}};
  for (const auto& row : kCases) {
    RunBench bench;
    bench.LogToCsv();
    bench.Run(row.binding, kFormBG, {{.id = 0x10, .dlc = row.dlc}});
    EXPECT_EQ(bench.Records(),
              std::string("         0 , 010 , ") + row.text + " ,  01,02,03,04,05,06,07,08\r\n");
    EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_DLC(0x10), row.dlc & 255);
  }
}

TEST(Logs, NegativeDlcIsLoggedAsItIsWithoutBytes) {
  RunBench bench;
  bench.LogToCsv();
  bench.Run(AdapterKind::kKvaser, kFormBG, {{.id = 0x10, .dlc = -1}});
  EXPECT_EQ(bench.Records(), "         0 , 010 , -1\r\n");
  EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_DLC(0x10), 255);
}

TEST(Logs, HalfIsFlushedInTheLoopAfterRecord20001AndThenTheOtherFills) {
  for (const WorkerKind worker : {WorkerKind::FormBG, WorkerKind::FormBG_29}) {
    RunBench bench;
    bench.LogToCsv();
    bench.Play(kCanusb, {{.id = 0x100}}, 20001);
    bool flushed_at_20000 = true;
    bench.qxt100.OnRead([&] {
      if (bench.qxt100.Reads() == 20001) flushed_at_20000 = bench.Log() != "no file";
    });
    bench.events = {[&] { bench.Play(kCanusb, {{.id = 0x101}}, 20001); },
                    [&] { bench.Play(kCanusb, {{.id = 0x102}}); }};
    bench.Run(kCanusb, worker);
    EXPECT_FALSE(flushed_at_20000);
    const auto records = [&](std::int32_t n) {
      const std::string text = bench.Records(n);
      return std::count(text.begin(), text.end(), '\n');
    };
    EXPECT_EQ(records(1), 20001);
    EXPECT_EQ(records(2), 20001);
    EXPECT_EQ(records(3), 1);
    EXPECT_NE(bench.Records(3).find("102"), std::string::npos);
    EXPECT_EQ(bench.Log(4), "no file");
  }
}

// One full half, written in the loop, and a frame in the other.
TEST(Logs, HalfBeingFilledIsTheOneWrittenAtTheEnd) {
  RunBench bench;
  bench.LogToCsv();
  bench.Play(kCanusb, {{.id = 0x100}}, 20001);
  bench.events = {[&] { bench.Play(kCanusb, {{.id = 0x101}}); }};
  bench.Run(kCanusb, kFormBG);
  EXPECT_EQ(bench.Records(2), "         0 , 101 , 8 ,  01,02,03,04,05,06,07,08\r\n");
  EXPECT_EQ(bench.Log(3), "no file");
}

TEST(Logs, FlagOtherThanOneAtTheEndWritesNothing) {
  for (const std::int32_t enable : {0, 2, -1}) {
    RunBench bench;
    bench.LogToCsv();
    bench.events = {[&] {
      bench.device.t_LogSave_Enable = enable;
      bench.RxFlag = 0;
    }};
    bench.Run(kCanusb, kFormBG, {{.id = 0x10}});
    EXPECT_EQ(bench.Log(), "no file") << enable;
  }
}

TEST(Logs, BytesAreThoseOfTheFrameWhateverWasReadBefore) {
  RunBench bench;
  bench.LogToCsv();
  bench.Run(kCanusb, kFormBG,
            {{.id = 0x10, .dlc = 3, .data = {0xAA, 0xBB, 0xCC, 0xDD}}, {.id = 0x11, .dlc = 1}});
  EXPECT_EQ(bench.Records(),
            "         0 , 010 , 3 ,  AA,BB,CC\r\n"
            "         0 , 011 , 1 ,  01\r\n");
}

}  // namespace
}  // namespace tolvane
