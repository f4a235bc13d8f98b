#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/simulator/ifcan_bed.h"

namespace tolvane::simulator {
namespace {

using platform::IfcanConfig;
using platform::IfcanMessage;
using platform::IfcanPortInformation;

using IfcanBenchTest = IfcanBed;

TEST_F(IfcanBenchTest, OnlyTheListedPortsOpen) {
  Plug("[interface 2]\n[interface 5]\n");
  EXPECT_EQ(library_->CanOpenPort("IFCAN1"), -1);
  const std::int32_t second = library_->CanOpenPort("IFCAN2");
  EXPECT_EQ(second, 0) << "handles begin at 0";
  EXPECT_EQ(library_->CanOpenPort("IFCAN2"), -1) << "already open";
  EXPECT_EQ(library_->CanOpenPort("IFCAN5"), 1);
  EXPECT_EQ(library_->CanOpenPort("IFCAN6"), -1);
  EXPECT_EQ(library_->CanOpenPort("IFCAN"), -1);
  EXPECT_EQ(library_->CanClosePort(second), 0);
  EXPECT_EQ(library_->CanOpenPort("IFCAN2"), 0);
}

TEST_F(IfcanBenchTest, EveryCallRefusesAHandleThatIsNotOpen) {
  Plug("[interface 1]\n");
  const std::int32_t closed = library_->CanOpenPort("IFCAN1");
  library_->CanClosePort(closed);
  IfcanConfig config{};
  IfcanPortInformation information{};
  for (const std::int32_t handle : {-1, 0, closed, 99}) {
    EXPECT_EQ(library_->CanClosePort(handle), kInvalidHandle) << handle;
    EXPECT_EQ(library_->CanGetConfig(handle, config), kInvalidHandle) << handle;
    EXPECT_EQ(library_->CanSetConfig(handle, config), kInvalidHandle) << handle;
    EXPECT_EQ(library_->CanActivate(handle), kInvalidHandle) << handle;
    EXPECT_EQ(library_->CanDeactivate(handle), kInvalidHandle) << handle;
    EXPECT_EQ(library_->CanGetPortInformation(handle, information), kInvalidHandle) << handle;
    EXPECT_EQ(Receive(handle), kInvalidHandle) << handle;
  }
}

TEST_F(IfcanBenchTest, TheConfigurationIsKeptUntilTheNextOpen) {
  Plug("[interface 1]\nconfig=1,2,3,4,5,6,39\n");
  std::int32_t handle = library_->CanOpenPort("IFCAN1");
  IfcanConfig config{};
  ASSERT_EQ(library_->CanGetConfig(handle, config), 0);
  EXPECT_EQ(config.mode, 1);
  EXPECT_EQ(config.passed_through, (std::array<std::int32_t, 5>{2, 3, 4, 5, 6}));
  EXPECT_EQ(config.baud_rate, 39);
  config.mode = 0;
  config.baud_rate = 7459;
  EXPECT_EQ(library_->CanSetConfig(handle, config), 0);
  IfcanConfig again{};
  library_->CanGetConfig(handle, again);
  EXPECT_EQ(again.baud_rate, 7459);
  library_->CanClosePort(handle);
  handle = library_->CanOpenPort("IFCAN1");
  library_->CanGetConfig(handle, again);
  EXPECT_EQ(again.baud_rate, 39);
}

TEST_F(IfcanBenchTest, FramesComeOnlyBetweenActivationAndDeactivation) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[interface 1]\n", "(1.0) c 001#\n(2.0) c 002#\n");
  const std::int32_t handle = library_->CanOpenPort("IFCAN1");
  bench_.Advance(5'000'000);
  EXPECT_EQ(Activate(handle), 0);
  EXPECT_EQ(Receive(handle), 0);
  EXPECT_EQ(message_.id, 1);
  EXPECT_EQ(Receive(handle), kEmpty);
  bench_.Advance(1'000'000);
  EXPECT_EQ(library_->CanDeactivate(handle), 0);
  EXPECT_EQ(Receive(handle), kEmpty);
  EXPECT_EQ(Activate(handle), 0);
  bench_.Advance(1'000'000);
  EXPECT_EQ(Receive(handle), 0) << "the traffic begins again";
}

TEST_F(IfcanBenchTest, ARecordSaysWhatWasOnTheBus) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[interface 1]\nclock_start=0x7FFFFFFF\n",
       "(1.000000) c 7FF#0102\n(1.000001) c 1FFFFFFF#0102030405060708\n(1.001) c 123#R2\n"
       "(1.001) c 20000001#00\n(1.001) c 100# T\n");
  const std::int32_t handle = library_->CanOpenPort("IFCAN1");
  Activate(handle);
  bench_.Advance(1'000'000);
  message_.data.fill(0xEE);
  message_.word2 = 77;
  ASSERT_EQ(Receive(handle), 0);
  EXPECT_EQ(count_, 1);
  EXPECT_EQ(message_.dlc, 2);
  EXPECT_EQ(message_.word2, 0);
  EXPECT_EQ(message_.id, 0x7FF);
  EXPECT_EQ(message_.data, (std::array<std::uint8_t, 8>{1, 2, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}));
  EXPECT_EQ(message_.timestamp, INT32_MAX);
  ASSERT_EQ(Receive(handle), 0);
  EXPECT_EQ(message_.id, Status(0x9FFFFFFF));
  EXPECT_EQ(message_.timestamp, INT32_MIN);
  ASSERT_EQ(Receive(handle), 0);
  EXPECT_EQ(message_.word2, 1) << "remote";
  EXPECT_EQ(Receive(handle), kEmpty) << "no error frames, none of its own";
  EXPECT_EQ(count_, 0);
}

TEST_F(IfcanBenchTest, PortInformationIsTheFiles) {
  Plug("[interface 3]\ndevice=4853\nsubsystem=8360\nchannel=2\nphysical_layer=0\n");
  const std::int32_t handle = library_->CanOpenPort("IFCAN3");
  IfcanPortInformation information{};
  ASSERT_EQ(library_->CanGetPortInformation(handle, information), 0);
  EXPECT_EQ(information.ulStructLength, 36);
  EXPECT_EQ(information.ulDeviceID, 4853);
  EXPECT_EQ(information.ulSubsystemID, 8360);
  EXPECT_EQ(information.ulChannelNumber, 2);
  EXPECT_EQ(information.ulPhysicalLayer, 0);
}

TEST_F(IfcanBenchTest, CallsAnswerAsTold) {
  Plug(
      "[interface 1]\nCanOpenPort=-1 after 1\nCanGetConfig=0xC0000003\nCanSetConfig=0xC0000001\n"
      "CanActivate=0xC0000002\nCanGetPortInformation=0xC0000009\nCanReceiveMessage=12\n"
      "CanDeactivate=0xC000000D\nCanClosePort=0xC000000E\n");
  const std::int32_t handle = library_->CanOpenPort("IFCAN1");
  IfcanConfig config{.mode = 5, .passed_through = {}, .baud_rate = 39};
  IfcanPortInformation information{};
  EXPECT_EQ(library_->CanGetConfig(handle, config), kInvalidParameter);
  EXPECT_EQ(config.mode, 5) << "untouched";
  EXPECT_EQ(library_->CanSetConfig(handle, config), Status(0xC0000001));
  EXPECT_EQ(library_->CanActivate(handle), Status(0xC0000002));
  EXPECT_EQ(library_->CanGetPortInformation(handle, information), Status(0xC0000009));
  EXPECT_EQ(Receive(handle), 12);
  EXPECT_EQ(library_->CanDeactivate(handle), Status(0xC000000D));
  EXPECT_EQ(library_->CanClosePort(handle), kUsbioFailed);
  EXPECT_EQ(bench_.Faults(), Faults{}) << "the program cannot help them";
  EXPECT_EQ(library_->CanClosePort(handle), kInvalidHandle) << "closed all the same";
  EXPECT_EQ(library_->CanOpenPort("IFCAN1"), -1);
}

TEST_F(IfcanBenchTest, APulledBoardFailsItsReads) {
  Plug("[interface 1]\npulled_at=1\n");
  const std::int32_t handle = library_->CanOpenPort("IFCAN1");
  Activate(handle);
  bench_.Advance(1'000'000);
  EXPECT_EQ(Receive(handle), kUsbioFailed);
}

TEST_F(IfcanBenchTest, TheReportTellsCallsInOrder) {
  Plug("[bus]\nsource=log\nlog=bus.log\nbit_rate=1000000\n[interface 1]\nconfig=0,2,3,4,5,6,295\n",
       "(1.0) c 001#\n");
  const std::int32_t handle = library_->CanOpenPort("IFCAN1");
  IfcanConfig config{};
  library_->CanGetConfig(handle, config);
  library_->CanSetConfig(handle, {.mode = 1, .passed_through = {2, 3, 4, 5, 6}, .baud_rate = 39});
  library_->CanActivate(handle);
  Receive(handle);
  library_->CanDeactivate(handle);
  library_->CanClosePort(handle);
  library_->CanClosePort(-1);
  library_.reset();
  EXPECT_EQ(bench_.ReportText(),
            "IFCan load\n"
            "IFCan CanOpenPort(\"IFCAN1\") = 0\n"
            "IFCan CanGetConfig(0) = 0\n"
            "IFCan CanSetConfig(0, 1, 2, 3, 4, 5, 6, 39) = 0\n"
            "IFCan recording frames=1 refused_lines=0\n"
            "IFCan bus IFCAN1 bit_rate=1000000 driver=silent\n"
            "IFCan CanActivate(0) = 0\n"
            "IFCan CanDeactivate(0) = 0\n"
            "IFCan run IFCAN1 reads=1 delivered=1 dropped=0 longest_gap_ms=0.000 "
            "queue_high_water=1\n"
            "IFCan CanClosePort(0) = 0\n"
            "IFCan CanClosePort(-1) = -1073741814\n"
            "IFCan unload\n");
}

}  // namespace
}  // namespace tolvane::simulator
