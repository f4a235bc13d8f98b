// Of the frame table a tick may change two columns, the last cycle and the stopped flag, and these
// in the rows that it shows.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>

#include "tests/view/worker_bed.h"
#include "view/tables/highlight_columns.h"

namespace tolvane {
namespace {

template <typename Worker>
class TickWrites : public EachWorker<Worker> {
 protected:
  using typename EachWorker<Worker>::Frame;
  using typename EachWorker<Worker>::Table;
  static constexpr std::int16_t kLast = Table::kArayy_MAX;
  static constexpr std::int16_t kKeys =
      3000;  // of an extended table; the rows after them are unused

  /// Every row differs from its neighbours in all that a tick reads, unused rows too.
  void FillEveryRow() {
    Table& frames = *this->bed_.frames;
    if constexpr (EachWorker<Worker>::kIs29) {
      for (std::int32_t key = kKeys; key > 0; --key) {
        this->bed_.Receive(key * 7, 0, {}, 0, key % 3 == 0 ? kExtended : kStandard);
      }
    } else {
      for (std::int32_t row = 0; row <= kLast; ++row) {
        frames.CAN11_ReadTime(static_cast<std::int16_t>(row), row);
      }
    }
    for (std::int32_t i = 0; i <= kLast; ++i) {
      const auto row = static_cast<std::int16_t>(i);
      Frame::Received(frames)(row, static_cast<std::uint8_t>(i % 4));
      Frame::DLC(frames)(row, static_cast<std::uint8_t>(i % 11));
      Frame::ReceivedTime(frames)(row, 1000.0 + i % 17);
      Frame::ReceivedTime_old(frames)(row, 900.0 + i % 13);
      Frame::ReceivedTime_Delta(frames)(row, i % 5 == 0 ? 0.0 : 40.0 + i % 90);
      Frame::ReceivedTime_writting(frames)(row, i % 7 == 0);
      Frame::ReadTime_old(frames)(row, 700.0 + i % 600);
      Frame::BlackoutON(frames)(row, static_cast<std::uint8_t>(i % 2));
      for (std::size_t n = 0; n < 8; ++n) {
        Frame::Data[n](frames)(row, static_cast<std::uint8_t>(i * 3 + static_cast<int>(n)));
        Frame::Data_old[n](frames)(row, static_cast<std::uint8_t>(i * 5 + static_cast<int>(n)));
      }
    }
  }

  [[nodiscard]] bool IsShown(std::int16_t row) const {
    const std::uint8_t state = Frame::Received(*this->bed_.frames)(row);
    if (Worker::value == WorkerKind::FormBG_29) return row < kKeys;
    if (EachWorker<Worker>::kIs29 ? row >= kKeys : row == 0 || row == kLast) return false;
    return state == row_state::kMany ||
           (state == row_state::kFirst && Worker::value != WorkerKind::FormBG2);
  }

  template <typename AnyColumn>
  void ExpectSameColumn(const Table& before, AnyColumn column, const char* name) const {
    for (std::int32_t row = 0; row <= kLast; ++row) ExpectSame(before, column, row, name);
  }
  template <typename AnyColumn>
  void ExpectSame(const Table& before, AnyColumn column, std::int32_t i, const char* name) const {
    const auto row = static_cast<std::int16_t>(i);
    EXPECT_EQ(std::invoke(column, *this->bed_.frames)(row), std::invoke(column, before)(row))
        << name << ' ' << i;
  }
};

TYPED_TEST_SUITE(TickWrites, AllWorkers);

TYPED_TEST(TickWrites, CycleAndStoppedFlagOfTheShownRowsAndNothingElse) {
  using Columns = typename TestFixture::Frame;
  auto& bed = this->bed_;
  this->FillEveryRow();
  bed.support.now = 1300;
  bed.device.t_MsgMarker_ON(0, 1);
  bed.device.t_MsgMarkerID(0, 7);
  const auto before = std::make_unique<typename TestFixture::Table>(*bed.frames);
  for (int ticks = 0; ticks < 2; ++ticks) bed.Page();

  this->ExpectSameColumn(*before, Columns::Received, "Received");
  this->ExpectSameColumn(*before, Columns::DLC, "DLC");
  this->ExpectSameColumn(*before, Columns::ReceivedTime, "ReceivedTime");
  this->ExpectSameColumn(*before, Columns::ReceivedTime_old, "ReceivedTime_old");
  this->ExpectSameColumn(*before, Columns::ReceivedTime_writting, "ReceivedTime_writting");
  this->ExpectSameColumn(*before, Columns::ReadTime_old, "ReadTime_old");
  for (const auto column : Columns::Data) this->ExpectSameColumn(*before, column, "Data");
  for (const auto column : Columns::Data_old) this->ExpectSameColumn(*before, column, "Data_old");
  if constexpr (TestFixture::kIs29) {
    EXPECT_EQ(bed.frames->CAN29_Received_ID_Counter, before->CAN29_Received_ID_Counter);
    EXPECT_EQ(bed.frames->CAN29_Received_ID_Counter_MAX, before->CAN29_Received_ID_Counter_MAX);
    this->ExpectSameColumn(*before, &CAN_ReadDB29::CAN29_Received_ID, "Received_ID");
    this->ExpectSameColumn(*before, &CAN_ReadDB29::CAN29_ExtendFlag, "ExtendFlag");
    this->ExpectSameColumn(*before, &CAN_ReadDB29::CAN29_ArrayNo, "ArrayNo");
  } else {
    this->ExpectSameColumn(*before, &CAN_ReadDB::CAN11_ReadTime, "ReadTime");
  }

  std::int32_t cycles = 0;
  std::int32_t flags = 0;
  for (std::int32_t i = 0; i <= TestFixture::kLast; ++i) {
    const auto row = static_cast<std::int16_t>(i);
    if (!this->IsShown(row)) {
      this->ExpectSame(*before, Columns::ReceivedTime_Delta, i, "Delta");
      this->ExpectSame(*before, Columns::BlackoutON, i, "BlackoutON");
    }
    cycles +=
        Columns::ReceivedTime_Delta(*bed.frames)(row) != Columns::ReceivedTime_Delta(*before)(row);
    flags += Columns::BlackoutON(*bed.frames)(row) != Columns::BlackoutON(*before)(row);
  }
  EXPECT_GT(cycles, 100);
  EXPECT_GT(flags, 100);
}

}  // namespace
}  // namespace tolvane
