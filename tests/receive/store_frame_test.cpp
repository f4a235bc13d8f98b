#include "receive/store_frame.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/memory/system/support_library.h"

namespace tolvane {
namespace {

using Bytes = std::array<std::uint8_t, 8>;
constexpr double kWrap = 60000.0;
constexpr KeyFlags kStandardKey = {.match = 0, .insert = 0, .can_Flag = 0};
constexpr KeyFlags kExtendedKey = {.match = 1, .insert = 1, .can_Flag = 1};
constexpr KeyFlags kRemoteKey = {.match = std::nullopt, .insert = 0, .can_Flag = 0};
constexpr KeyFlags kNoKey = {.match = std::nullopt, .insert = std::nullopt, .can_Flag = 1};

template <typename Table>
class StoreFrames : public testing::Test {
 protected:
  using C = FrameColumns<Table>;

  void Store(std::int32_t id, const Bytes& data, std::int32_t device_time, std::int32_t dlc = 8,
             KeyFlags key = kStandardKey) {
    StoreFrame(
        *frames_, slots_,
        ReceivedFrame{
            .can_DATA = data, .id = id, .can_DLC = dlc, .device_time = device_time, .key = key},
        time_, kWrap, device_, qxt100_);
  }
  [[nodiscard]] Bytes Data(std::int16_t row) const { return Read(C::Data, row); }
  [[nodiscard]] Bytes Old(std::int16_t row) const { return Read(C::Data_old, row); }
  [[nodiscard]] std::int32_t State(std::int16_t row) const { return C::Received(*frames_)(row); }

  ELM327_Info device_ = Defaults();
  platform::memory::SupportLibrary qxt100_;
  TimeLine time_;
  SlotFinder<Table> slots_;
  std::unique_ptr<Table> frames_ = std::make_unique<Table>();

 private:
  static ELM327_Info Defaults() {
    ELM327_Info device(u"C:\\Tolvane");
    device.Param_ALL_Clear();
    return device;
  }
  [[nodiscard]] Bytes Read(const std::array<typename C::Bytes, 8>& columns,
                           std::int16_t row) const {
    Bytes bytes = {};
    for (std::size_t n = 0; n < 8; ++n) bytes[n] = columns[n](*frames_)(row);
    return bytes;
  }
};

using Frame11 = StoreFrames<CAN_ReadDB>;
using Frame29 = StoreFrames<CAN_ReadDB29>;

constexpr Bytes kFirst = {1, 2, 3, 4, 5, 6, 7, 8};
constexpr Bytes kSecond = {11, 2, 13, 4, 15, 6, 17, 8};

TEST_F(Frame11, FirstFrameIsStateThreeAndItsOwnPredecessor) {
  Store(0x123, kFirst, 500);
  EXPECT_EQ(State(0x123), 3);
  EXPECT_EQ(Data(0x123), kFirst);
  EXPECT_EQ(Old(0x123), kFirst);
  EXPECT_EQ(frames_->CAN11_ReceivedTime_old(0x123), 0.0);
  EXPECT_EQ(frames_->CAN11_ReceivedTime(0x123), 0.0);
}

TEST_F(Frame11, SecondFrameIsStateOneAndKeepsTheFirstBytes) {
  Store(0x123, kFirst, 500);
  Store(0x123, kSecond, 620);
  EXPECT_EQ(State(0x123), 1);
  EXPECT_EQ(Data(0x123), kSecond);
  EXPECT_EQ(Old(0x123), kFirst);
  EXPECT_EQ(frames_->CAN11_ReceivedTime_old(0x123), 0.0);
  EXPECT_EQ(frames_->CAN11_ReceivedTime(0x123), 120.0);
}

TEST_F(Frame11, LaterFramesStayInStateOneAndMoveBothTimes) {
  Store(0x123, kFirst, 500);
  Store(0x123, kSecond, 620);
  Store(0x123, kFirst, 700);
  EXPECT_EQ(State(0x123), 1);
  EXPECT_EQ(Old(0x123), kSecond);
  EXPECT_EQ(frames_->CAN11_ReceivedTime_old(0x123), 120.0);
  EXPECT_EQ(frames_->CAN11_ReceivedTime(0x123), 200.0);
}

TEST_F(Frame11, FirstFrameOfALaterIdHasItsPlaceOnTheRunsLine) {
  Store(0x123, kFirst, 500);
  Store(0x124, kFirst, 530);
  EXPECT_EQ(frames_->CAN11_ReceivedTime_old(0x124), 0.0);
  EXPECT_EQ(frames_->CAN11_ReceivedTime(0x124), 30.0);
}

TEST_F(Frame11, AllEightBytesAreStoredWhateverTheDlc) {
  Store(0x123, kFirst, 0);
  Store(0x123, kSecond, 1, 2);
  EXPECT_EQ(frames_->CAN11_DLC(0x123), 2);
  EXPECT_EQ(Data(0x123), kSecond);
}

TEST_F(Frame11, DlcIsStoredAsReported) {
  Store(0x123, kFirst, 0, 15);
  EXPECT_EQ(frames_->CAN11_DLC(0x123), 15);
  Store(0x123, kFirst, 0, 255);
  EXPECT_EQ(frames_->CAN11_DLC(0x123), 255);
}

TEST_F(Frame11, OnlyTheLowByteOfADlcWordIsStored) {
  Store(0x123, kFirst, 0, 0x1208);
  EXPECT_EQ(frames_->CAN11_DLC(0x123), 8);
  Store(0x123, kFirst, 0, -1);
  EXPECT_EQ(frames_->CAN11_DLC(0x123), 255);
}

TEST_F(Frame11, IdZeroHasRowZeroAndTheLastIdRow2047) {
  Store(0, kFirst, 0);
  Store(2047, kSecond, 0);
  EXPECT_EQ(State(0), 3);
  EXPECT_EQ(State(2047), 3);
  EXPECT_EQ(State(2048), 0);
  EXPECT_EQ(Data(0), kFirst);
  EXPECT_EQ(Data(2047), kSecond);
}

TEST_F(Frame11, ReadTimeIsThePcClockWhateverTheTimerMode) {
  for (const std::int32_t mode : {0, 1, 2}) {
    device_.t_Timer_Mode = mode;
    qxt100_.Advance(1000.0);
    Store(0x10, kFirst, 5);
    EXPECT_EQ(frames_->CAN11_ReadTime_old(0x10), qxt100_.qx_timeGetTime()) << mode;
  }
}

TEST_F(Frame11, ClockIsReadOnceInDeviceModeAndTwiceInClockMode) {
  Store(0x10, kFirst, 5);
  EXPECT_EQ(qxt100_.Reads(), 1);
  device_.t_Timer_Mode = 1;
  Store(0x10, kFirst, 5);
  EXPECT_EQ(qxt100_.Reads(), 3);
}

TEST_F(Frame11, TimerSettingsAreReadAfreshForEachFrame) {
  Store(0x10, kFirst, 100);
  device_.t_dividend_ratio = 2.0;
  Store(0x10, kFirst, 110);
  EXPECT_EQ(time_.Message_Time, 20.0);
  device_.t_Timer_Mode = 5;
  Store(0x10, kFirst, 120);
  EXPECT_EQ(time_.Message_Time, 20.0);
}

TEST_F(Frame11, ViewsColumnsAndTheUnusedOneAreNotTouched) {
  frames_->CAN11_ReceivedTime_Delta(0x10, 33.0);
  frames_->CAN11_BlackoutON(0x10, 1);
  frames_->CAN11_ReadTime(0x10, 44.0);
  Store(0x10, kFirst, 100);
  EXPECT_EQ(frames_->CAN11_ReceivedTime_Delta(0x10), 33.0);
  EXPECT_EQ(frames_->CAN11_BlackoutON(0x10), 1);
  EXPECT_EQ(frames_->CAN11_ReadTime(0x10), 44.0);
}

// The two readings of the clock show the row in the middle of its steps.
TEST_F(Frame11, RowIsMarkedWhileItIsWritten) {
  device_.t_Timer_Mode = 1;
  Store(0x10, kFirst, 0);
  qxt100_.Advance(40.0);
  std::vector<std::string> steps;
  qxt100_.OnRead([&] {
    steps.push_back("state " + std::to_string(State(0x10)) + " dlc " +
                    std::to_string(frames_->CAN11_DLC(0x10)) + " writting " +
                    std::to_string(frames_->CAN11_ReceivedTime_writting(0x10)) + " byte " +
                    std::to_string(frames_->CAN11_Data1(0x10)) + " time " +
                    std::to_string(static_cast<int>(time_.Message_Time)));
  });
  Store(0x10, kSecond, 0, 3);
  EXPECT_EQ(steps, (std::vector<std::string>{"state 2 dlc 3 writting 0 byte 1 time 0",
                                             "state 2 dlc 3 writting 0 byte 1 time 40"}));
  EXPECT_EQ(frames_->CAN11_ReceivedTime_writting(0x10), 0);
}

TEST_F(Frame29, FirstFrameOfARunHasPositionZeroRowZeroAndStateThree) {
  Store(0x18FF0001, kFirst, 0, 8, kExtendedKey);
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 1);
  EXPECT_EQ(frames_->CAN29_Received_ID(0), 0x18FF0001);
  EXPECT_EQ(frames_->CAN29_ExtendFlag(0), 1);
  EXPECT_EQ(State(0), 3);
  EXPECT_EQ(Old(0), kFirst);
}

TEST_F(Frame29, SecondFrameOfAKeyIsStateOneInTheSameRow) {
  Store(0x300, kFirst, 0);
  Store(0x100, kFirst, 10);
  Store(0x300, kSecond, 25);
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 2);
  EXPECT_EQ(State(0), 1);
  EXPECT_EQ(Data(0), kSecond);
  EXPECT_EQ(Old(0), kFirst);
  EXPECT_EQ(frames_->CAN29_ReceivedTime(0), 25.0);
  EXPECT_EQ(frames_->CAN29_ReceivedTime(1), 10.0);
}

TEST_F(Frame29, StandardAndExtendedOfOneNumberAreTwoRows) {
  Store(0x123, kFirst, 0, 8, kExtendedKey);
  Store(0x123, kSecond, 0, 8, kStandardKey);
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 2);
  EXPECT_EQ(frames_->CAN29_ExtendFlag(0), 0);
  EXPECT_EQ(frames_->CAN29_ArrayNo(0), 1);
  EXPECT_EQ(Data(0), kFirst);
  EXPECT_EQ(Data(1), kSecond);
}

TEST_F(Frame29, IdZeroStandardOverwritesRowZeroAndMakesNoKey) {
  Store(0x300, kFirst, 0);
  Store(0, kSecond, 10);
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 1);
  EXPECT_EQ(State(0), 1);
  EXPECT_EQ(Data(0), kSecond);
  EXPECT_EQ(Old(0), kFirst);
}

TEST_F(Frame29, IdZeroStandardInAnEmptyTableWritesRowZeroOfNoKey) {
  Store(0, kSecond, 10);
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 0);
  EXPECT_EQ(State(0), 1);
  EXPECT_EQ(Old(0), Bytes{});
}

TEST_F(Frame29, EachRemoteFrameTakesANewKeyBeforeItsEquals) {
  Store(0x100, kFirst, 0);
  Store(0x100, kSecond, 1, 8, kRemoteKey);
  Store(0x100, kSecond, 2, 8, kRemoteKey);
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 3);
  EXPECT_EQ(State(2), 3);
  EXPECT_EQ(frames_->CAN29_ArrayNo(0), 2);
  // A data frame of the ID now goes to the newest row, and the old line no longer changes.
  Store(0x100, kFirst, 3);
  EXPECT_EQ(State(2), 1);
  EXPECT_EQ(State(0), 3);
}

TEST_F(Frame29, FrameWithoutAnyKeyGoesToRowZeroWithStateThree) {
  Store(0x100, kFirst, 0);
  Store(0x100, kFirst, 5);
  Store(0x555, kSecond, 9, 4, kNoKey);
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 1);
  EXPECT_EQ(State(0), 3);
  EXPECT_EQ(Data(0), kSecond);
  EXPECT_EQ(Old(0), kSecond);
  EXPECT_EQ(frames_->CAN29_DLC(0), 4);
  EXPECT_EQ(frames_->CAN29_ReceivedTime(0), 9.0);
  EXPECT_EQ(frames_->CAN29_ReceivedTime_old(0), 5.0);
}

TEST_F(Frame29, NewKeyInAFullTableWritesTheLowestKeysRowEachTime) {
  for (std::int32_t id = 4001; id >= 1; --id) Store(id * 2, kFirst, 0);
  Store(1, kSecond, 0);
  const auto lowest = static_cast<std::int16_t>(frames_->CAN29_ArrayNo(0));
  EXPECT_EQ(lowest, 4000);
  EXPECT_EQ(frames_->CAN29_Received_ID(0), 2);
  EXPECT_EQ(State(lowest), 3);
  EXPECT_EQ(Data(lowest), kSecond);
  EXPECT_EQ(Old(lowest), kSecond);
  Store(1, kFirst, 0);
  EXPECT_EQ(State(lowest), 3);
  EXPECT_EQ(Old(lowest), kFirst);
  Store(9999, kSecond, 0, 8, kNoKey);  // after the last position: row 0
  EXPECT_EQ(State(0), 3);
  EXPECT_EQ(Data(0), kSecond);
}

}  // namespace
}  // namespace tolvane
