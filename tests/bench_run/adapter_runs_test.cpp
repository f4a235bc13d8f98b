// The program with each kind of adapter: its library has nothing to object to.
#include "tests/bench_run/bench_run.h"

namespace tolvane::bench_run {
namespace {

TEST_P(EachKind, HasNoFaultInAnyWorkerAndIsSilentWhereItCanBe) {
  for (const std::int32_t ids : {0, kMsgIdType29Bit}) {
    for (const std::int32_t exclusion : {0, 1}) {
      for (const std::int32_t silent : {0, 1, 2}) {
        SCOPED_TRACE(std::to_string(ids) + " " + std::to_string(exclusion) + " " +
                     std::to_string(silent));
        ASSERT_NO_FATAL_FAILURE(Start(kTenPerSecond, GetParam()));
        program_->Device().t_msgID_type = ids;
        program_->Device().t_Save_ID_DisableMode = exclusion;
        program_->Device().t_silent_mode = silent;
        EXPECT_EQ(Run(550).size(), 6u);
        EXPECT_NE(Page().find("123  2   05 00"), std::string::npos) << Page();
        const bool told_silent = silent == 1 && GetParam() != kCanusb;
        EXPECT_TRUE(Reported(std::string("bus ") + kAdapterNames[GetParam()] +
                             " bit_rate=500000 driver=" + (told_silent ? "silent" : "normal")));
      }
    }
  }
}

TEST_P(EachKind, RunsAgainAndAgainWithoutAFault) {
  ASSERT_NO_FATAL_FAILURE(Start(kTenPerSecond, GetParam()));
  for (int run = 0; run < 3; ++run) EXPECT_EQ(Run(250).size(), 3u) << run;
}

struct Rate {
  std::int32_t t_bitRate;
  std::int32_t bit_rate;
  bool interface_has;
  bool kvaser_has;
};

constexpr Rate kRates[] = {
    {0, 1'000'000, true, true}, {1, 800'000, false, false}, {2, 500'000, true, true},
    {3, 250'000, true, true},   {4, 100'000, true, true},   {5, 50'000, true, true},
    {6, 20'000, false, false},  {7, 10'000, false, true},   {8, 125'000, true, true}};

TEST_P(EachKind, ReceivesAtTheRateOfTheBusAndAtNoOther) {
  for (const Rate& rate : kRates) {
    for (const std::int32_t bus : {rate.bit_rate, rate.bit_rate / 2}) {
      SCOPED_TRACE(std::to_string(rate.bit_rate) + " on " + std::to_string(bus));
      ASSERT_NO_FATAL_FAILURE(
          Start(kTenPerSecond + ("bit_rate=" + std::to_string(bus)), GetParam()));
      program_->Device().t_bitRate = rate.t_bitRate;
      const bool refused = (GetParam() == kInterface && !rate.interface_has) ||
                           (GetParam() == kKvaser && !rate.kvaser_has);
      const bool right = bus == rate.bit_rate && !refused;
      EXPECT_EQ(Run(250).size(), right ? 3u : 0u);
      const std::string told = std::string(kAdapterNames[GetParam()]) + " at " +
                               std::to_string(rate.bit_rate) + " bit/s on a bus of " +
                               std::to_string(bus);
      if (!right && !refused) expected_faults_ = {told};
    }
  }
}

TEST_P(EachKind, WithoutARateThatThereIsReceivesNothing) {
  for (const std::int32_t t_bitRate : {-1, 9}) {
    ASSERT_NO_FATAL_FAILURE(Start(kTenPerSecond, GetParam()));
    program_->Device().t_bitRate = t_bitRate;
    EXPECT_EQ(Run(250), Lines{});
    if (GetParam() == kCanusb) expected_faults_ = {"canusb_Open: no such rate"};
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EachKind, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return kKindNames[kind.param]; });

struct FailedSetUp {
  Kind kind;
  const char* failing;
  std::size_t records;  // of the 250 ms of the run
  std::vector<std::string> made;
};

using RunSetUp = BenchRun;

// A run whose set-up failed goes on as if it had not, and the library cannot object to that.
TEST_F(RunSetUp, ResultsAreNotLookedAt) {
  const Lines interface_calls = {"CanSetConfig(0, ", "CanActivate(0)", "CanDeactivate(0)",
                                 "CanClosePort(0) = 0"};
  const Lines kvaser_calls = {"canSetBusParams(0, ", "canSetBusOutputControl(0, 4)", "canBusOn(0)",
                              "canBusOff(0)", "canClose(0) = 0"};
  for (const FailedSetUp& row :
       {FailedSetUp{kInterface, "CanSetConfig=0xC0000001", 0, interface_calls},
        FailedSetUp{kInterface, "CanActivate=0xC0000001", 0, interface_calls},
        FailedSetUp{kInterface, "CanDeactivate=0xC0000001", 3, interface_calls},
        FailedSetUp{kKvaser, "canSetBusParams=-1", 0, kvaser_calls},
        FailedSetUp{kKvaser, "canSetBusOutputControl=-1", 3, kvaser_calls},
        FailedSetUp{kKvaser, "canBusOn=-15", 0, kvaser_calls},
        FailedSetUp{kKvaser, "canBusOff=-15 after 1", 3, kvaser_calls}}) {
    SCOPED_TRACE(row.failing);
    ASSERT_NO_FATAL_FAILURE(
        Start(kTenPerSecond + std::string("[faults]\n") + row.failing, row.kind));
    const std::size_t before = report_.str().size();
    EXPECT_EQ(Run(250).size(), row.records);
    std::size_t at = before;
    for (const std::string& call : row.made) {
      at = report_.str().find(call, at);
      ASSERT_NE(at, std::string::npos) << call << " is missing, or comes too early";
    }
  }
}

using Search = BenchRun;

TEST_F(Search, KeepsNoTailOfALongerText) {
  BenchProgram program(
      "[canusb 1]\nserial=ABCDEFGHIJKLMNOPQRSTUVWXYZ012345\n[canusb 2]\nserial=SHORTER\n"
      "[kvaser 0]\nname=a long name of a channel\n[kvaser 1]\nname=short\n",
      {.read_us = 1'000, .tick_us = 0, .flush_us = 0}, report_);
  program.Start();
  EXPECT_EQ(program.DeviceLines(),
            (std::vector<String>{u"CANUSB ABCDEFGHIJKLMNOPQRSTUVWXYZ012345", u"CANUSB SHORTER",
                                 u"a long name of a channel", u"short"}));
}

}  // namespace
}  // namespace tolvane::bench_run
