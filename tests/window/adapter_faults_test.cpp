// Adapters and clocks that fail in a run of the real program, one of each kind.
#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "tests/helpers/expect_bytes.h"
#include "tests/window/adapter_runs.h"
#include "tests/window/control_ids.h"
#include "tests/window/log_fixture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

// Ten frames a second, whose first byte counts them from 0.
constexpr const char* kTenFrames =
    "[bus]\nsource = generator\nrate = 10\nframes = 10\nids = 1\nfirst_id = 0x123\npayload = 2\n";

/// A record of frame n at a time.
std::string Record(const std::string& time, int n) {
  return std::string(10 - time.size(), ' ') + time + " , 123 , 2 ,  " +
         Hex(static_cast<unsigned>(n), 2) + ",00\r\n";
}
std::string Record(long long time, int n) { return Record(std::to_string(time), n); }

class AdapterFaults : public LogRun {
 protected:
  /// One adapter of each kind with the same faults, on one bus.
  void StartWith(const std::string& bus, const std::string& faults) {
    PlugIn("[canusb 1]\n[interface 1]\n[kvaser 0]\n" + bus + "[faults]\n" + faults,
           {L"canusbdrv.dll", L"IFCan.dll", L"canlib32.dll"});
    Start();
  }

  /// A run with each kind, during which `wait` waits for the page's last state. The log's records
  /// are those of `records`.
  void RunEach(const std::function<void()>& wait, const std::function<std::string(Kind)>& records) {
    for (const Kind kind : kKinds) {
      SCOPED_TRACE(kKindNames[kind]);
      main_.SelectLine(id::Cmb_Serect_Device, kind);
      ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
      ASSERT_NO_FATAL_FAILURE(Connect(main_));
      wait();
      const std::wstring page = main_.Text(id::RTB_MainView);
      ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
      EXPECT_EQ(Utf8(main_.Text(id::RTB_MainView)), Utf8(page));
      ASSERT_EQ(Logs().size(), static_cast<std::size_t>(kind) + 1);
      const std::string log = FileBytes(Logs().back());
      const std::size_t head = log.find("D8\r\n");
      ASSERT_NE(head, std::string::npos);
      EXPECT_TRUE(SameBytes(log.substr(head + 4), records(kind)));
    }
    End();
  }
};

TEST_F(AdapterFaults, PulledInTheRunLeaveThePageAndAWholeLogAndDisconnect) {
  // Two frames a second. A slow machine has read the second one long before the adapter is gone.
  ASSERT_NO_FATAL_FAILURE(StartWith(
      "[bus]\nsource = generator\nrate = 2\nframes = 5\nids = 1\nfirst_id = 0x123\npayload = 2\n",
      "pulled_at = 0.99\n"));
  RunEach(
      [&] {
        EXPECT_TRUE(WaitForShown(L"123  2   01 00"));
        // What stands still for two and a half cycles turns grey. The next frame was due after one.
        EXPECT_TRUE(Shows(main_, id::RTB_MainView, RGB(150, 150, 150), 20));
        EXPECT_TRUE(WaitForShown(L"123  2   01 00"));
        EXPECT_TRUE(main_.Text(id::TB_Status).starts_with(L"通信中"));
      },
      [](Kind) { return Record(0, 0) + Record(500, 1); });
}

TEST_F(AdapterFaults, SilentForAWhileGoOnBehindIt) {
  ASSERT_NO_FATAL_FAILURE(StartWith(kTenFrames, "silence_from = 0.15\nsilence_to = 0.85\n"));
  RunEach(
      [&] { EXPECT_TRUE(WaitForShown(L"123  2   09 00" + std::wstring(18, L' ') + L"   800ms")); },
      [](Kind) { return Record(0, 0) + Record(100, 1) + Record(900, 9); });
}

TEST_F(AdapterFaults, BurstsThatAllButFillTheQueueAreLoggedWhole) {
  // The ten other frames have room beside the burst, so a machine that pauses here loses none.
  constexpr unsigned kBurst = 4096;
  ASSERT_NO_FATAL_FAILURE(StartWith("[bench]\nqueue = 4106\n" + std::string(kTenFrames),
                                    "burst_at = 0.45\nburst_frames = 4096\n"));
  RunEach([&] { EXPECT_TRUE(WaitForShown(L"123  2   09 00")); },
          [&](Kind kind) {
            std::string records;
            for (int n = 0; n < 10; ++n) {
              records += Record(100 * n, n);
              for (unsigned burst = 0; n == 4 && burst < kBurst; ++burst) {
                records += PaddedTime(450) + " , 7F0 , 8 ,  " + CounterBytes(burst, ",") + "\r\n";
              }
            }
            const std::string report = bench_->Report();
            const std::size_t run = report.rfind(std::string("run ") + kAdapterNames[kind]);
            EXPECT_NE(report.find(" dropped=0 ", run), std::string::npos) << report;
            constexpr std::string_view kHighWater = " queue_high_water=";
            const std::size_t high_water = report.find(kHighWater, run);
            if (high_water == std::string::npos) {
              ADD_FAILURE() << report;
              return records;
            }
            EXPECT_GE(std::stoul(report.substr(high_water + kHighWater.size())), kBurst) << report;
            return records;
          });
}

TEST_F(AdapterFaults, ClocksThatStepBackAndForthGiveTheTimesOfTheirKind) {
  ASSERT_NO_FATAL_FAILURE(StartWith(kTenFrames, "clock_steps = 0.25:-200, 0.55:300\n"));
  RunEach([&] { EXPECT_TRUE(WaitForShown(L"123  2   09 00")); },
          [](Kind kind) {
            // A step back is taken for the timer's wrap; Kvaser's has none and the time goes back.
            constexpr std::array<long long, 3> kWraps{60'000, 429'491, 0};
            constexpr std::array kTimes{100, 200, 300, 700, 800, 900, 1000};
            std::string records = Record(0, 0) + Record(100, 1) + Record(200, 2);
            int n = 3;
            for (const int time : kTimes) records += Record(kWraps[kind] + time, n++);
            return records;
          });
}

TEST_F(AdapterFaults, AClockThatIsFastByAPercentIsMendedByTheRatio) {
  ASSERT_NO_FATAL_FAILURE(StartWith(kTenFrames, "clock_ppm = 10000\n"));
  const DrivenWindow dialog = Open(id::menu_common_setting);
  dialog.Type(id::TB_dividend_ratio, L"0.9901");
  PressOk(dialog);
  RunEach([&] { EXPECT_TRUE(WaitForShown(L"123  2   09 00")); },
          [](Kind) {
            std::string records = Record(0, 0);
            for (int n = 1; n < 10; ++n) {
              records += Record(std::to_string(100 * n) + ".000" + std::to_string(n), n);
            }
            return records;
          });
}

TEST_F(AdapterFaults, LengthsOf255ShowSevenBytesAndAreLoggedWithEight) {
  ASSERT_NO_FATAL_FAILURE(StartWith(kTenFrames, "force_dlc = 255\n"));
  RunEach([&] { EXPECT_TRUE(WaitForShown(L"123  255   09 00 00 00 00 00 00   100ms")); },
          [](Kind) {
            std::string records;
            for (int n = 0; n < 10; ++n) {
              records += PaddedTime(100 * n) + " , 123 , 255 ,  " +
                         Hex(static_cast<unsigned>(n), 2) + ",00,00,00,00,00,00,00\r\n";
            }
            return records;
          });
}

TEST_F(AdapterFaults, JunkInTheIdWordIsMaskedForInterfaceAlone) {
  ASSERT_NO_FATAL_FAILURE(StartWith(kTenFrames, "or_id = 0x60000000\n"));
  const DrivenWindow dialog = Open(id::menu_common_setting);
  EXPECT_TRUE(dialog.Click(id::RB_MsgType_1));
  PressOk(dialog);
  for (const Kind kind : kKinds) {
    SCOPED_TRACE(kKindNames[kind]);
    main_.SelectLine(id::Cmb_Serect_Device, kind);
    ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
    ASSERT_NO_FATAL_FAILURE(Connect(main_));
    EXPECT_EQ(AwaitWholeTraffic(kAdapterNames[kind]), 10);
    // A frame that was taken has been on the page since the first of them.
    EXPECT_TRUE(WaitForLines(main_, 1));
    if (kind == kInterface) {
      EXPECT_TRUE(WaitForShown(L"  00000123  2   09 00"));
    }
    const std::wstring page = main_.Text(id::RTB_MainView);
    EXPECT_EQ(page.find(L"123  2") != std::wstring::npos, kind == kInterface) << Utf8(page);
    ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
    const std::string log = FileBytes(Logs().back());
    EXPECT_EQ(log.ends_with("D8\r\n"), kind != kInterface) << log;
  }
  End();
}

// What an adapter does not write is what the read before has left in the program's record.
TEST_F(AdapterFaults, ARemoteFrameShowsTheBytesOfTheFrameBefore) {
  std::ofstream(folder_.Path() / L"frames.log", std::ios::binary)
      << "(0.0) can0 100#1112131415161718\n(0.1) can0 200#21\n(0.2) can0 456#R3\n";
  PlugIn("[interface 1]\n[bus]\nsource = log\nlog = frames.log\n", {L"IFCan.dll"});
  Start();
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  EXPECT_TRUE(WaitForShown(L"456  3   21 12 13 ")) << Utf8(main_.Text(id::RTB_MainView));
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  End();
}

// The board's clock is a word of 32 bits; the program repairs a wrap at 429491 ms.
TEST_F(AdapterFaults, BoardClocksGoThroughNegativeStampsAndThroughTheRepairOfAWrap) {
  struct Row {
    const char* faults;
    std::array<long long, 3> times;  // of the frames after the change
  };
  for (const Row& row :
       {Row{"clock_start = 0x7FFC2F6F\n", {-3'865'175, -1'717'842, -1'717'742}},
        Row{"clock_wrap = 429491000\nclock_start = 429240000\n", {300, 429'640, 429'740}}}) {
    PlugIn(std::string("[interface 1]\n[bus]\nsource = generator\nrate = 10\nframes = 6\nids = 1\n"
                       "first_id = 0x123\npayload = 2\n[faults]\n") +
               row.faults,
           {L"IFCan.dll"});
    Start();
    RunUntilShown(L"123  2   05 00");
    End();
    std::string records;
    for (int n = 0; n < 6; ++n) {
      records += Record(n < 3 ? 100 * n : row.times[static_cast<std::size_t>(n - 3)], n);
    }
    const std::string log = FileBytes(Logs().back());
    EXPECT_TRUE(log.ends_with("D8\r\n" + records)) << log;
  }
}

}  // namespace
}  // namespace tolvane::window
