// What the simulated canlib32.dll refuses, and what it reports as a fault of the program.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/simulator/canlib_bed.h"

namespace tolvane::simulator {
namespace {

constexpr std::int32_t kNotSupported = -19;
constexpr std::int32_t kHardware = -15;

class CanlibRefuses : public CanlibBed {
 protected:
  std::int32_t SetParams(std::int32_t handle, std::int32_t rate = -2) {
    return library_->canSetBusParams(handle, rate, 5, 2, 1, 1, 0);
  }
};

TEST_F(CanlibRefuses, AnythingAheadOfTheInitialization) {
  library_ = std::make_unique<CanlibBench>(bench_.Make("canlib32", "[kvaser 0]\n", ""));
  std::int32_t count = 0;
  std::array<std::uint32_t, 2> words{};
  library_->canGetNumberOfChannels(count);
  Open(0);
  Data(0, 7, words);
  EXPECT_EQ(bench_.Faults(), (Faults{"canGetNumberOfChannels: the library is not initialized",
                                     "canOpenChannel: the library is not initialized",
                                     "canGetChannelData: the library is not initialized"}));
}

TEST_F(CanlibRefuses, ASetUpWithoutInitialAccess) {
  Plug("[kvaser 0]\n");
  const std::int32_t handle = library_->canOpenChannel(0, 0);
  EXPECT_EQ(handle, 0);
  EXPECT_EQ(SetParams(handle), kNotSupported);
  EXPECT_EQ(library_->canSetBusOutputControl(handle, 1), kNotSupported);
  EXPECT_EQ(library_->canBusOn(handle), kHardware);
  EXPECT_EQ(Read(handle), -2);
  EXPECT_EQ(bench_.Faults(), (Faults{"canSetBusParams: without initial access",
                                     "canSetBusOutputControl: without initial access"}));
}

TEST_F(CanlibRefuses, ASetUpOnTheBus) {
  Plug("[kvaser 0]\n");
  const std::int32_t handle = Open(0);
  EXPECT_EQ(GoOnBus(handle), 0);
  EXPECT_EQ(SetParams(handle), kNotSupported);
  EXPECT_EQ(library_->canSetBusOutputControl(handle, 1), kNotSupported);
  library_->canBusOff(handle);
  EXPECT_EQ(SetParams(handle), 0);
  EXPECT_EQ(library_->canSetBusOutputControl(handle, 1), 0);
  EXPECT_EQ(bench_.Faults(), (Faults{"canSetBusParams: the channel is on the bus",
                                     "canSetBusOutputControl: the channel is on the bus"}));
}

TEST_F(CanlibRefuses, TheBusAheadOfItsParameters) {
  Plug("[kvaser 0]\n");
  const std::int32_t handle = Open(0);
  EXPECT_EQ(library_->canBusOn(handle), kHardware);
  EXPECT_EQ(bench_.Faults(), Faults{"canBusOn: no bus parameters"});
  EXPECT_EQ(GoOnBus(handle), 0);
  EXPECT_EQ(library_->canBusOn(handle), 0);
  EXPECT_EQ(bench_.Faults().back(), "canBusOn: the channel is on the bus");
}

TEST_F(CanlibRefuses, TheBusAgainOnceTheChannelWasClosed) {
  Plug("[kvaser 0]\n");
  std::int32_t handle = Open(0);
  GoOnBus(handle);
  library_->canBusOff(handle);
  library_->canClose(handle);
  handle = Open(0);
  EXPECT_EQ(library_->canBusOn(handle), kHardware) << "an open begins with nothing";
}

TEST_F(CanlibRefuses, NoFaultWhereTheScriptRefusesTheParameters) {
  Plug("[kvaser 0]\ncanSetBusParams=-1\n");
  const std::int32_t handle = Open(0);
  SetParams(handle);
  EXPECT_EQ(library_->canBusOn(handle), kHardware);
  EXPECT_EQ(Read(handle), -2);
  library_->canBusOff(handle);
  library_->canClose(handle);
  EXPECT_EQ(bench_.Faults(), Faults{});
}

TEST_F(CanlibRefuses, ARateOrADriverTypeThatThereIsNot) {
  Plug("[kvaser 0]\n");
  const std::int32_t handle = Open(0);
  EXPECT_EQ(SetParams(handle, -10), -1);
  EXPECT_EQ(SetParams(handle, 500'000), -1);
  EXPECT_EQ(library_->canSetBusOutputControl(handle, 3), -1);
  EXPECT_EQ(bench_.Faults(),
            (Faults{"canSetBusParams: no predefined rate", "canSetBusParams: no predefined rate",
                    "canSetBusOutputControl: no such driver type"}));
}

TEST_F(CanlibRefuses, DataAtAnotherRateThanTheBus) {
  struct Rate {
    std::int32_t predefined;
    std::int32_t bit_rate;
  };
  constexpr Rate kRates[] = {{-1, 1'000'000}, {-2, 500'000}, {-3, 250'000},
                             {-4, 125'000},   {-5, 100'000}, {-6, 62'500},
                             {-7, 50'000},    {-8, 83'333},  {-9, 10'000}};
  Plug("[bus]\nsource=log\nlog=bus.log\n[kvaser 0]\n", "(1.0) c 123#01\n");
  const std::int32_t handle = Open(0);
  for (const Rate& rate : kRates) {
    const bool right = rate.bit_rate == 500'000;
    const std::size_t before = bench_.Faults().size();
    SetParams(handle, rate.predefined);
    EXPECT_EQ(library_->canBusOn(handle), 0);
    flag_ = 0;
    EXPECT_EQ(Read(handle), 0);
    EXPECT_EQ(flag_, right ? 2 : 0x20) << rate.predefined;
    EXPECT_EQ(Read(handle), -2);
    EXPECT_EQ(bench_.Faults().size(), before + (right ? 0 : 1));
    if (!right) {
      EXPECT_EQ(bench_.Faults().back(),
                "channel0 at " + std::to_string(rate.bit_rate) + " bit/s on a bus of 500000");
    }
    library_->canBusOff(handle);
  }
}

TEST_F(CanlibRefuses, TheDriverTypeIsToldAndKeptUntilTheClose) {
  struct Type {
    std::uint32_t number;
    const char* name;
  };
  constexpr Type kTypes[] = {{0, "off"}, {1, "silent"}, {4, "normal"}, {8, "selfreception"}};
  Plug("[kvaser 0]\n");
  const auto go_on_bus = [&](std::int32_t handle, const char* driver) {
    const std::size_t before = bench_.ReportText().size();
    GoOnBus(handle);
    library_->canBusOff(handle);
    EXPECT_NE(bench_.ReportText().find(
                  std::string("bus channel0 bit_rate=500000 driver=") + driver + "\n", before),
              std::string::npos)
        << driver;
  };
  for (const Type& type : kTypes) {
    const std::int32_t handle = Open(0);
    EXPECT_EQ(library_->canSetBusOutputControl(handle, type.number), 0);
    for (int run = 0; run < 2; ++run) go_on_bus(handle, type.name);
    library_->canClose(handle);
    const std::int32_t again = Open(0);
    go_on_bus(again, "normal");
    library_->canClose(again);
  }
}

TEST_F(CanlibRefuses, AReadOffTheBusAndTellsItOnce) {
  Plug("[kvaser 0]\n");
  const std::int32_t handle = Open(0);
  EXPECT_EQ(Read(handle), -2);
  EXPECT_EQ(Read(handle), -2);
  const Faults faults{"canRead: the channel is not on the bus"};
  EXPECT_EQ(bench_.Faults(), faults);
  GoOnBus(handle);
  library_->canBusOff(handle);
  Read(handle);
  EXPECT_EQ(bench_.Faults(), (Faults{faults[0], faults[0]}));
}

TEST_F(CanlibRefuses, HandlesThatAreNotOpen) {
  Plug("[kvaser 0]\n");
  EXPECT_EQ(library_->canClose(0), -10);
  EXPECT_EQ(library_->canBusOff(-1), -10);
  EXPECT_EQ(bench_.Faults(), (Faults{"canClose: no open channel has the handle 0",
                                     "canBusOff: no open channel has the handle -1"}));
}

TEST_F(CanlibRefuses, ASecondOpenAndFlagsWithoutMeaning) {
  Plug("[kvaser 0]\n");
  EXPECT_EQ(library_->canOpenChannel(0, kInitAccess | 1), -1);
  Open(0);
  EXPECT_EQ(Open(0), -5);
  EXPECT_EQ(bench_.Faults(),
            (Faults{"canOpenChannel: flags without meaning", "canOpenChannel: already open"}));
}

TEST_F(CanlibRefuses, ChannelDataWithoutRoomOrMeaning) {
  Plug("[kvaser 0]\n");
  std::array<std::uint8_t, 7> too_small{};
  EXPECT_EQ(Data(0, 7, too_small), -1);
  EXPECT_EQ(Data(0, 99, too_small), -1);
  EXPECT_EQ(Data(1, 7, too_small), -3) << "no fault: a handle may be another number";
  const std::string why = "canGetChannelData: no such item, or too small a buffer";
  EXPECT_EQ(bench_.Faults(), (Faults{why, why}));
}

TEST_F(CanlibRefuses, ToBeLeftOpenOrClosedOnTheBus) {
  Plug("[kvaser 0]\n[kvaser 1]\n");
  const std::int32_t handle = Open(0);
  GoOnBus(handle);
  EXPECT_EQ(library_->canClose(handle), 0);
  Open(1);
  library_.reset();
  EXPECT_EQ(bench_.Faults(),
            (Faults{"canClose: the channel is on the bus", "channel1 is left open"}));
}

}  // namespace
}  // namespace tolvane::simulator
