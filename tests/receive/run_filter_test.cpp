#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

constexpr std::int32_t kMax11 = 2047;
constexpr std::int32_t kMax29 = 536870911;
constexpr std::array<std::uint8_t, 8> kData = {1, 2, 3, 4, 5, 6, 7, 8};

/// How many frames a run of the bench has stored: each moves the clock's reading count by one.
std::int64_t Stored(RunBench& bench, AdapterKind binding, WorkerKind worker) {
  const std::int64_t before = bench.qxt100.Reads();
  bench.Run(binding, worker);
  return bench.qxt100.Reads() - before;
}

TEST(AcceptTest, Canusb) {
  const struct {
    std::int32_t id;
    std::uint8_t flags;
    bool by11, by29;
  } kFrames[] = {{0, 0, true, true},
                 {kMax11, 0, true, true},
                 {kMax11 + 1, 0, false, true},
                 {-1, 0, false, true},
                 {INT32_MIN, 128, false, true},
                 {INT32_MIN + 0x10, 0, false, true},
                 {0x10, 128, false, true},
                 {0x10, 64, false, true},
                 {0x10, 1, false, true},
                 {kMax29, 128, false, true},
                 {kMax29 + 1, 128, false, false},
                 {INT32_MAX, 0, false, false}};
  for (const auto& row : kFrames) {
    for (const WorkerKind worker : kAllWorkers) {
      RunBench bench;
      bench.canusbdrv.frames.Play({{row.id, 0, row.flags, 8, kData}});
      EXPECT_EQ(Stored(bench, AdapterKind::kCanusb, worker),
                (Is29Bit(worker) ? row.by29 : row.by11) ? 1 : 0)
          << row.id << ' ' << int{row.flags} << ' ' << WayName(AdapterKind::kCanusb, worker);
    }
  }
}

TEST(AcceptTest, Interface) {
  const struct {
    std::int32_t id;
    bool by11;
  } kFrames[] = {{0, true},          {kMax11, true}, {kMax11 + 1, false},
                 {INT32_MIN, false}, {-1, false},    {kMax29 + 1, false}};
  for (const auto& row : kFrames) {
    for (const WorkerKind worker : kAllWorkers) {
      RunBench bench;
      bench.IFCan.frames.Play({{8, 0x7FFFFFFF, row.id, kData, 0}});
      EXPECT_EQ(Stored(bench, AdapterKind::kInterface, worker), Is29Bit(worker) || row.by11 ? 1 : 0)
          << row.id << ' ' << WayName(AdapterKind::kInterface, worker);
    }
  }
}

TEST(AcceptTest, InterfaceMasksTheIdWordOfA29BitRun) {
  RunBench bench;
  bench.IFCan.frames.Play(
      {{8, 0, static_cast<std::int32_t>(0xF8000123u), kData, 0}, {8, 0, 0x60000123, kData, 0}});
  bench.Run(AdapterKind::kInterface, WorkerKind::FormBG_29);
  const CAN_ReadDB29& frames = *bench.workers.FormBG_29_tables.frames;
  ASSERT_EQ(frames.CAN29_Received_ID_Counter, 2);
  EXPECT_EQ(frames.CAN29_Received_ID(0), 0x123);
  EXPECT_EQ(frames.CAN29_ExtendFlag(0), 0);
  EXPECT_EQ(frames.CAN29_Received_ID(1), 0x18000123);
  EXPECT_EQ(frames.CAN29_ExtendFlag(1), 1);
}

TEST(AcceptTest, Kvaser) {
  const struct {
    std::int32_t id, flag;
    bool by11, by29;
  } kFrames[] = {{0, 2, true, true},
                 {kMax11, 2, true, true},
                 {kMax11 + 1, 2, false, true},
                 {-1, 2, false, false},
                 {0x10, 4, false, true},
                 {0x10, 3, false, true},
                 {0x10, 0x42, false, true},
                 {0x10, 0, false, true},
                 {0x10, -1, false, true},
                 {kMax29, 4, false, true},
                 {kMax29 + 1, 4, false, false},
                 {INT32_MIN + 0x10, 2, false, false},
                 {INT32_MIN + 0x10, 4, false, false}};
  for (const auto& row : kFrames) {
    for (const WorkerKind worker : kAllWorkers) {
      RunBench bench;
      bench.canlib32.frames.Play({{row.id, kData, 8, row.flag, 0}});
      EXPECT_EQ(Stored(bench, AdapterKind::kKvaser, worker),
                (Is29Bit(worker) ? row.by29 : row.by11) ? 1 : 0)
          << row.id << ' ' << row.flag << ' ' << WayName(AdapterKind::kKvaser, worker);
    }
  }
}

TEST(FormatFilter, InterfaceExclusionWorkersFollowTheSetting) {
  const struct {
    std::int32_t t_MsgFmtTyp;
    WorkerKind worker;
    bool standard, extended;
  } kCases[] = {
      {0, WorkerKind::FormBG2, true, false},     {1, WorkerKind::FormBG2, true, false},
      {2, WorkerKind::FormBG2, false, false},    {-1, WorkerKind::FormBG2, false, false},
      {0, WorkerKind::FormBG2_29, true, true},   {1, WorkerKind::FormBG2_29, false, true},
      {2, WorkerKind::FormBG2_29, false, false}, {1, WorkerKind::FormBG, true, false},
      {2, WorkerKind::FormBG, true, false},      {1, WorkerKind::FormBG_29, true, true},
      {2, WorkerKind::FormBG_29, true, true},
  };
  for (const auto& row : kCases) {
    for (const bool extended : {false, true}) {
      RunBench bench;
      bench.device.t_MsgFmtTyp = row.t_MsgFmtTyp;
      bench.Play(AdapterKind::kInterface, {{.id = 0x10, .extended = extended}});
      EXPECT_EQ(Stored(bench, AdapterKind::kInterface, row.worker),
                (extended ? row.extended : row.standard) ? 1 : 0)
          << row.t_MsgFmtTyp << ' ' << extended << WayName(AdapterKind::kInterface, row.worker);
    }
  }
}

TEST(FormatFilter, CanusbAndKvaserDoNotLookAtTheSetting) {
  for (const AdapterKind binding : {AdapterKind::kCanusb, AdapterKind::kKvaser}) {
    for (const WorkerKind worker : kAllWorkers) {
      for (const std::int32_t t_MsgFmtTyp : {0, 1, 2}) {
        RunBench bench;
        bench.device.t_MsgFmtTyp = t_MsgFmtTyp;
        bench.Play(binding, {{.id = 0x10}});
        EXPECT_EQ(Stored(bench, binding, worker), 1) << WayName(binding, worker) << t_MsgFmtTyp;
      }
    }
  }
}

class Exclusion : public testing::TestWithParam<AdapterKind> {
 protected:
  Exclusion() {
    bench_.device.t_DisableID_ON(7, 1);
    bench_.device.t_DisableID_Start(7, 0x100);
    bench_.device.t_DisableID_End(7, 0x1FF);
    bench_.Play(GetParam(), {{.id = 0x0FF}, {.id = 0x100}, {.id = 0x1FF}, {.id = 0x200}});
  }
  RunBench bench_;
};

TEST_P(Exclusion, ModeOneDropsEnabledRangesInTheExclusionWorkers) {
  for (const WorkerKind worker : kAllWorkers) {
    RunBench bench;
    bench.device = bench_.device;
    bench.device.t_Save_ID_DisableMode = 1;
    bench.Play(GetParam(), {{.id = 0x0FF}, {.id = 0x100}, {.id = 0x1FF}, {.id = 0x200}});
    const bool excludes = worker == WorkerKind::FormBG2 || worker == WorkerKind::FormBG2_29;
    EXPECT_EQ(Stored(bench, GetParam(), worker), excludes ? 2 : 4) << WayName(GetParam(), worker);
  }
}

TEST_P(Exclusion, ModeZeroDropsNothing) {
  EXPECT_EQ(Stored(bench_, GetParam(), WorkerKind::FormBG2), 4);
}

TEST_P(Exclusion, AnyOtherModeDropsEverything) {
  for (const std::int32_t mode : {2, -1, INT32_MIN, INT32_MAX}) {
    for (const WorkerKind worker : {WorkerKind::FormBG2, WorkerKind::FormBG2_29}) {
      RunBench bench;
      bench.device.t_Save_ID_DisableMode = mode;
      bench.Play(GetParam(), {{.id = 0x0FF}, {.id = 0x100}});
      EXPECT_EQ(Stored(bench, GetParam(), worker), 0) << WayName(GetParam(), worker) << mode;
      EXPECT_EQ(bench.loop.Yields(), 1);
    }
  }
}

TEST_P(Exclusion, DroppedFramesReachNeitherTableNorLog) {
  bench_.device.t_Save_ID_DisableMode = 1;
  bench_.LogToCsv();
  bench_.Run(GetParam(), WorkerKind::FormBG2);
  EXPECT_EQ(bench_.workers.FormBG2_tables.frames->CAN11_Received(0x100), 0);
  EXPECT_EQ(bench_.Records(),
            "         0 , 0FF , 8 ,  01,02,03,04,05,06,07,08\r\n"
            "         0 , 200 , 8 ,  01,02,03,04,05,06,07,08\r\n");
}

TEST_P(Exclusion, DroppedFramesDoNotYieldAndDoNotTouchTheTimeLine) {
  bench_.device.t_Save_ID_DisableMode = 1;
  bench_.Play(GetParam(), {{.id = 0x150, .time = 100}, {.id = 0x050, .time = 350}});
  bench_.Run(GetParam(), WorkerKind::FormBG2);
  EXPECT_EQ(bench_.loop.Yields(), 1);  // the empty queue
  EXPECT_EQ(bench_.workers.FormBG2_tables.frames->CAN11_ReceivedTime(0x050), 0.0);
}

INSTANTIATE_TEST_SUITE_P(AllAdapters, Exclusion, testing::ValuesIn(kAllBindings));

}  // namespace
}  // namespace tolvane
