#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

#include "tests/simulator/canlib_bed.h"

namespace tolvane::simulator {
namespace {

using CanlibBenchTest = CanlibBed;

TEST_F(CanlibBenchTest, NothingWorksBeforeTheLibraryIsInitialized) {
  library_ = std::make_unique<CanlibBench>(bench_.Make("canlib32", "[kvaser 0]\n", ""));
  std::int32_t count = 5;
  std::array<std::uint32_t, 2> words{};
  EXPECT_EQ(library_->canGetNumberOfChannels(count), -8);
  EXPECT_EQ(count, 5) << "untouched";
  EXPECT_EQ(Open(0), -8);
  EXPECT_EQ(Data(0, 7, words), -8);
}

TEST_F(CanlibBenchTest, ChannelsWithGapsGetTheLowestFreeHandle) {
  Plug("[kvaser 0]\n[kvaser 2]\n[kvaser 3]\ncanOpenChannel=-3\n[kvaser 4]\n");
  std::int32_t count = 0;
  EXPECT_EQ(library_->canGetNumberOfChannels(count), 0);
  EXPECT_EQ(count, 5);
  EXPECT_EQ(Open(0), 0);
  EXPECT_EQ(Open(1), -3);
  EXPECT_EQ(Open(2), 1);
  EXPECT_EQ(Open(3), -3);
  EXPECT_EQ(Open(4), 2);
  EXPECT_EQ(Open(4), -5) << "already open";
  EXPECT_EQ(Open(5), -3);
  EXPECT_EQ(library_->canClose(0), 0);
  EXPECT_EQ(Open(0), 0);
}

TEST_F(CanlibBenchTest, EveryCallRefusesAHandleThatIsNotOpen) {
  Plug("[kvaser 0]\n");
  library_->canClose(Open(0));
  for (const std::int32_t handle : {-1, 0, 7}) {
    EXPECT_EQ(library_->canClose(handle), -10) << handle;
    EXPECT_EQ(library_->canSetBusParams(handle, -2, 5, 2, 1, 1, 0), -10) << handle;
    EXPECT_EQ(library_->canSetBusOutputControl(handle, 4), -10) << handle;
    EXPECT_EQ(library_->canBusOn(handle), -10) << handle;
    EXPECT_EQ(library_->canBusOff(handle), -10) << handle;
    EXPECT_EQ(Read(handle), -10) << handle;
  }
}

TEST_F(CanlibBenchTest, ChannelDataGoByChannelNumber) {
  Plug(
      "[kvaser 0]\n[kvaser 2]\nname=two\nserial=0x80000001\nfirmware=0x0001000200030004\n"
      "upc=0x0733012345678905\n");
  std::array<std::uint32_t, 2> words{7, 7};
  EXPECT_EQ(Data(2, 7, words), 0);
  EXPECT_EQ(words, (std::array<std::uint32_t, 2>{0x80000001, 0}));
  EXPECT_EQ(Data(2, 9, words), 0);
  EXPECT_EQ(words, (std::array<std::uint32_t, 2>{0x00030004, 0x00010002}));
  EXPECT_EQ(Data(2, 11, words), 0);
  EXPECT_EQ(words, (std::array<std::uint32_t, 2>{0x45678905, 0x07330123}));
  EXPECT_EQ(Data(1, 11, words), -3) << "no such channel";
  EXPECT_EQ(Data(2, 99, words), -1) << "no such item";
  std::array<char, 4> name{};
  EXPECT_EQ(Data(2, 13, name), 0);
  EXPECT_STREQ(name.data(), "two");
  std::array<char, 3> short_name{};
  EXPECT_EQ(Data(2, 13, short_name), 0);
  EXPECT_STREQ(short_name.data(), "tw");
  std::array<std::uint8_t, 7> too_small{};
  EXPECT_EQ(Data(2, 7, too_small), -1);
  EXPECT_EQ(library_->canGetChannelData(2, 13, {}), -1);
}

TEST_F(CanlibBenchTest, OneItemCanBeRefused) {
  Plug("[kvaser 0]\ncanGetChannelData.13=-1\n[kvaser 1]\ncanGetChannelData=-19\n");
  std::array<char, 64> buffer{};
  EXPECT_EQ(Data(0, 13, buffer), -1);
  EXPECT_EQ(Data(0, 7, buffer), 0);
  EXPECT_EQ(Data(1, 13, buffer), -19);
  EXPECT_EQ(Data(1, 7, buffer), -19);
}

TEST_F(CanlibBenchTest, FlagsTellEveryKindOfFrame) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[kvaser 0]\n",
       "(1.0) c 123#01\n(1.0) c 00000123#01\n(1.0) c 123#R3\n(1.0) c 00000123#R\n"
       "(1.0) c 20000004#0000000000000000\n(1.0) c 123#02 T\n(1.0) c 00000123# T\n");
  const std::int32_t handle = Open(0);
  GoOnBus(handle);
  for (const std::int32_t flag : {2, 4, 2 | 1, 4 | 1, 0x20, 2 | 0x40, 4 | 0x40}) {
    ASSERT_EQ(Read(handle), 0);
    EXPECT_EQ(flag_, flag);
  }
  EXPECT_EQ(Read(handle), -2);
}

TEST_F(CanlibBenchTest, ARecordSaysWhatWasOnTheBus) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[kvaser 0]\nclock_start=1000\nclock_steps=2:-500\n",
       "(1.0) c 123#0102\n(3.0) c 1FFFFFFF#0102030405060708_C\n");
  const std::int32_t handle = Open(0);
  GoOnBus(handle);
  bench_.Advance(2'000'000);
  data_.fill(0xEE);
  ASSERT_EQ(Read(handle), 0);
  EXPECT_EQ(id_, 0x123);
  EXPECT_EQ(dlc_, 2);
  EXPECT_EQ(data_, (std::array<std::uint8_t, 8>{1, 2, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}));
  EXPECT_EQ(time_, 1'000);
  ASSERT_EQ(Read(handle), 0);
  EXPECT_EQ(id_, 0x1FFFFFFF);
  EXPECT_EQ(dlc_, 12);
  EXPECT_EQ(time_, 2'500) << "the clock has stepped back";
  library_->canBusOff(handle);
}

TEST_F(CanlibBenchTest, PredefinedRatesAreTaken) {
  Plug("[kvaser 0]\n");
  const std::int32_t handle = Open(0);
  for (std::int32_t rate = -1; rate >= -9; --rate) {
    EXPECT_EQ(library_->canSetBusParams(handle, rate, 5, 2, 1, 1, 0), 0) << rate;
  }
  EXPECT_EQ(library_->canSetBusParams(handle, 0, 5, 2, 1, 1, 0), -1);
  EXPECT_EQ(library_->canSetBusParams(handle, -10, 5, 2, 1, 1, 0), -1);
}

TEST_F(CanlibBenchTest, CallsAnswerAsTold) {
  Plug(
      "[kvaser]\nchannels=31\ncanGetNumberOfChannels=-12 after 1\n"
      "[kvaser 0]\ncanSetBusParams=-1\ncanSetBusOutputControl=-19\ncanBusOn=-15\ncanBusOff=-6\n"
      "canRead=-13\ncanClose=-12\n");
  std::int32_t count = 0;
  EXPECT_EQ(library_->canGetNumberOfChannels(count), 0);
  EXPECT_EQ(count, 31);
  EXPECT_EQ(library_->canGetNumberOfChannels(count), -12);
  EXPECT_EQ(count, 31) << "untouched";
  const std::int32_t handle = Open(0);
  EXPECT_EQ(library_->canSetBusParams(handle, -2, 5, 2, 1, 1, 0), -1);
  EXPECT_EQ(library_->canSetBusOutputControl(handle, 4), -19);
  EXPECT_EQ(library_->canBusOn(handle), -15);
  EXPECT_EQ(Read(handle), -13);
  EXPECT_EQ(library_->canBusOff(handle), -6);
  EXPECT_EQ(library_->canClose(handle), -12);
  EXPECT_EQ(bench_.Faults(), Faults{}) << "the program cannot help them";
  EXPECT_EQ(library_->canClose(handle), -10) << "closed all the same";
}

TEST_F(CanlibBenchTest, APulledAdapterFailsItsReads) {
  Plug("[kvaser 0]\npulled_at=1\n");
  const std::int32_t handle = Open(0);
  GoOnBus(handle);
  bench_.Advance(1'000'000);
  EXPECT_EQ(Read(handle), -15);
}

TEST_F(CanlibBenchTest, TheReportTellsCallsInOrder) {
  Plug("[kvaser 0]\n");
  std::int32_t count = 0;
  library_->canGetNumberOfChannels(count);
  const std::int32_t handle = Open(0);
  std::array<char, 64> name{};
  Data(0, 13, name);
  library_->canSetBusParams(handle, -2, 5, 2, 1, 1, 0);
  library_->canSetBusOutputControl(handle, 1);
  library_->canBusOn(handle);
  Read(handle);
  library_->canBusOff(handle);
  library_->canClose(handle);
  library_.reset();
  EXPECT_EQ(bench_.ReportText(),
            "canlib32 load\n"
            "canlib32 canInitializeLibrary()\n"
            "canlib32 canGetNumberOfChannels() = 0 \"1\"\n"
            "canlib32 canOpenChannel(0, 128) = 0\n"
            "canlib32 canGetChannelData(0, 13, 64) = 0\n"
            "canlib32 canSetBusParams(0, -2, 5, 2, 1, 1, 0) = 0\n"
            "canlib32 canSetBusOutputControl(0, 1) = 0\n"
            "canlib32 bus channel0 bit_rate=500000 driver=silent\n"
            "canlib32 canBusOn(0) = 0\n"
            "canlib32 canBusOff(0) = 0\n"
            "canlib32 run channel0 reads=1 delivered=0 dropped=0 longest_gap_ms=0.000 "
            "queue_high_water=0\n"
            "canlib32 canClose(0) = 0\n"
            "canlib32 unload\n");
}

}  // namespace
}  // namespace tolvane::simulator
