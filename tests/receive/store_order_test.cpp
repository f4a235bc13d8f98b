// The steps of a stored frame in their order, seen on a table that notes every let.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/system/support_library.h"
#include "receive/store_frame.h"

namespace tolvane {
namespace {

using Steps = std::vector<std::string>;

/// A column of one row.
template <typename T>
class NotingColumn {
 public:
  NotingColumn(Steps& steps, std::string name) : steps_(steps), name_(std::move(name)) {}

  [[nodiscard]] T operator()(std::int16_t) const { return value_; }
  void operator()(std::int16_t, T value) {
    value_ = value;
    steps_.push_back(name_ + " = " + std::to_string(static_cast<int>(value)));
  }

 private:
  Steps& steps_;
  std::string name_;
  T value_ = {};
};

struct NotingTable {
  using Bytes = NotingColumn<std::uint8_t>;
  using Times = NotingColumn<double>;

  Steps steps;
  bool found = false;
  Bytes Received{steps, "Received"};
  Times ReceivedTime{steps, "ReceivedTime"};
  Times ReceivedTime_old{steps, "ReceivedTime_old"};
  Bytes ReceivedTime_writting{steps, "writting"};
  Times ReadTime_old{steps, "ReadTime_old"};
  Bytes DLC{steps, "DLC"};
  Bytes Data1{steps, "Data1"}, Data2{steps, "Data2"}, Data3{steps, "Data3"}, Data4{steps, "Data4"};
  Bytes Data5{steps, "Data5"}, Data6{steps, "Data6"}, Data7{steps, "Data7"}, Data8{steps, "Data8"};
  Bytes Data1_old{steps, "Data1_old"}, Data2_old{steps, "Data2_old"};
  Bytes Data3_old{steps, "Data3_old"}, Data4_old{steps, "Data4_old"};
  Bytes Data5_old{steps, "Data5_old"}, Data6_old{steps, "Data6_old"};
  Bytes Data7_old{steps, "Data7_old"}, Data8_old{steps, "Data8_old"};
};

}  // namespace

template <>
struct FrameColumns<NotingTable> {
  using Table = NotingTable;
  using Bytes = ColumnOf<Table, Table::Bytes>;

  static constexpr ColumnOf Received = &Table::Received;
  static constexpr ColumnOf ReceivedTime = &Table::ReceivedTime;
  static constexpr ColumnOf ReceivedTime_old = &Table::ReceivedTime_old;
  static constexpr ColumnOf ReceivedTime_writting = &Table::ReceivedTime_writting;
  static constexpr ColumnOf ReadTime_old = &Table::ReadTime_old;
  static constexpr ColumnOf DLC = &Table::DLC;
  static constexpr std::array<Bytes, 8> Data = {&Table::Data1, &Table::Data2, &Table::Data3,
                                                &Table::Data4, &Table::Data5, &Table::Data6,
                                                &Table::Data7, &Table::Data8};
  static constexpr std::array<Bytes, 8> Data_old = {
      &Table::Data1_old, &Table::Data2_old, &Table::Data3_old, &Table::Data4_old,
      &Table::Data5_old, &Table::Data6_old, &Table::Data7_old, &Table::Data8_old};
};

template <>
class SlotFinder<NotingTable> {
 public:
  FrameSlot SlotOf(NotingTable& table, const ReceivedFrame&) { return {0, table.found}; }
};

namespace {

/// Two frames of one row, 40 ms apart by the computer's clock; the steps of the second.
Steps StepsOfSecondFrame(bool found) {
  ELM327_Info device(u"C:\\Tolvane");
  device.Param_ALL_Clear();
  device.t_Timer_Mode = 1;
  platform::memory::SupportLibrary qxt100;
  qxt100.Now(1000.0);
  TimeLine time;
  SlotFinder<NotingTable> slots;
  NotingTable table;
  const std::array<std::uint8_t, 8> first = {1, 2, 3, 4, 5, 6, 7, 8};
  const std::array<std::uint8_t, 8> second = {11, 12, 13, 14, 15, 16, 17, 18};
  StoreFrame(table, slots, ReceivedFrame{.can_DATA = first, .can_DLC = 8}, time, 0.0, device,
             qxt100);
  table.steps.clear();
  table.found = found;
  qxt100.Advance(40.0);
  qxt100.OnRead([&table] { table.steps.push_back("clock"); });
  StoreFrame(table, slots, ReceivedFrame{.can_DATA = second, .can_DLC = 3}, time, 0.0, device,
             qxt100);
  return table.steps;
}

const Steps kTimeSteps = {"Received = 2",
                          "DLC = 3",
                          "clock",
                          "clock",
                          "ReadTime_old = 1040",
                          "writting = 1",
                          "ReceivedTime_old = 0",
                          "ReceivedTime = 40",
                          "writting = 0"};
const Steps kByteSteps = {"Data1 = 11", "Data2 = 12", "Data3 = 13", "Data4 = 14",
                          "Data5 = 15", "Data6 = 16", "Data7 = 17", "Data8 = 18"};

Steps Joined(const std::vector<Steps>& parts) {
  Steps all;
  for (const Steps& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST(StoreOrder, LaterFrameMovesTheBytesOnBetweenTheMarkersOfItsRow) {
  const Steps old = {"Data1_old = 1", "Data2_old = 2", "Data3_old = 3", "Data4_old = 4",
                     "Data5_old = 5", "Data6_old = 6", "Data7_old = 7", "Data8_old = 8"};
  EXPECT_EQ(StepsOfSecondFrame(true), Joined({kTimeSteps, old, kByteSteps, {"Received = 1"}}));
}

TEST(StoreOrder, FirstFrameIsItsOwnPredecessorInARowThatHeldAnother) {
  const Steps old = {"Data1_old = 11", "Data2_old = 12", "Data3_old = 13", "Data4_old = 14",
                     "Data5_old = 15", "Data6_old = 16", "Data7_old = 17", "Data8_old = 18"};
  EXPECT_EQ(StepsOfSecondFrame(false), Joined({kTimeSteps, old, kByteSteps, {"Received = 3"}}));
}

}  // namespace
}  // namespace tolvane
