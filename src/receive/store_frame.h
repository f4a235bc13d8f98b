#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/support_library.h"
#include "receive/adapters/binding.h"
#include "receive/tables/can_readdb.h"
#include "receive/tables/can_readdb29.h"
#include "receive/tables/common_function2.h"
#include "receive/tables/frame_columns.h"
#include "receive/tables/key_list.h"
#include "receive/tables/time_line.h"
#include "run/elm327_info.h"

namespace tolvane {

/// Where a frame goes: its row, and whether a frame of its kind stands there already.
struct FrameSlot {
  std::int16_t row;
  bool found;
};

/// Finds a frame's slot during one run.
template <typename Table>
class SlotFinder;

/// The row is the identifier, 0 to 2047.
template <>
class SlotFinder<CAN_ReadDB> {
 public:
  FrameSlot SlotOf(CAN_ReadDB& frames, const ReceivedFrame& frame) {
    const auto row = static_cast<std::int16_t>(frame.id);
    return {row, frames.CAN11_Received(row) != row_state::kNone};
  }
};

/// The row of the frame's key, which is made if there is none. A frame that neither matches nor
/// makes a key goes to row 0, even if another key owns it. A new key in a full table goes to the
/// row of the lowest key.
template <>
class SlotFinder<CAN_ReadDB29> {
 public:
  FrameSlot SlotOf(CAN_ReadDB29& frames, const ReceivedFrame& frame) {
    if (frame.key.match) {
      const auto p = search_.Find(frames, frame.id, *frame.key.match);
      if (p) return {RowAt(frames, *p), true};
    }
    if (!frame.key.insert) return {0, false};
    return {RowAt(frames, Alloc_CAN29_Slot(frames, frame.id, *frame.key.insert)), false};
  }

 private:
  static std::int16_t RowAt(const CAN_ReadDB29& frames, std::int16_t p) {
    return static_cast<std::int16_t>(frames.CAN29_ArrayNo(p));
  }

  KeySearch search_;
};

/// Writes an accepted frame into its row and moves the run's time line on. The two markers of a row
/// half written, state 2 and _writting, are set and cleared in the order that the view counts on.
template <typename Table>
void StoreInSlot(Table& frames, const FrameSlot& slot, const ReceivedFrame& frame, TimeLine& time,
                 double device_time_wrap, const ELM327_Info& device,
                 platform::SupportLibrary& qxt100) {
  using C = FrameColumns<Table>;
  const auto [row, found] = slot;
  C::Received(frames)(row, row_state::kWriting);
  C::DLC(frames)(row, static_cast<std::uint8_t>(frame.can_DLC));
  Common_Function2::Frame_Time_Update(device.t_Timer_Mode, time.Time_Origin, time.Message_Time,
                                      time.Time_Last_Elapsed, frame.device_time, device_time_wrap,
                                      device.t_dividend_ratio, qxt100);
  C::ReadTime_old(frames)(row, qxt100.qx_timeGetTime());
  C::ReceivedTime_writting(frames)(row, 1);
  C::ReceivedTime_old(frames)(row, C::ReceivedTime(frames)(row));
  C::ReceivedTime(frames)(row, time.Message_Time);
  C::ReceivedTime_writting(frames)(row, 0);
  // A first frame is its own predecessor, so that it shows no change.
  for (std::size_t n = 0; n < C::Data.size(); ++n) {
    C::Data_old[n](frames)(row, found ? C::Data[n](frames)(row) : frame.can_DATA[n]);
  }
  for (std::size_t n = 0; n < C::Data.size(); ++n) {
    C::Data[n](frames)(row, frame.can_DATA[n]);
  }
  C::Received(frames)(row, found ? row_state::kMany : row_state::kFirst);
}

/// The same with the row that `slots` finds or makes.
template <typename Table>
void StoreFrame(Table& frames, SlotFinder<Table>& slots, const ReceivedFrame& frame, TimeLine& time,
                double device_time_wrap, const ELM327_Info& device,
                platform::SupportLibrary& qxt100) {
  StoreInSlot(frames, slots.SlotOf(frames, frame), frame, time, device_time_wrap, device, qxt100);
}

}  // namespace tolvane
