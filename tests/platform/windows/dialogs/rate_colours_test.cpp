// What the common settings say of each bit rate, by its colour, against what the adapters take.
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <optional>

#include "platform/memory/memory_platform.h"
#include "platform/windows/dialogs/control_colour.h"
#include "receive/adapters/canusb_binding.h"
#include "receive/adapters/interface_binding.h"
#include "receive/adapters/kvaser_binding.h"
#include "tests/platform/windows/all_windows_bed.h"

namespace tolvane::platform::windows {
namespace {

class RateColours : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(windows_.Made());
    dialog_ = windows_.OpenSettings(0);
    ASSERT_NE(dialog_, nullptr);
  }
  void TearDown() override { AllWindows::Close(dialog_); }

  [[nodiscard]] HWND Control(int control) const { return GetDlgItem(dialog_, control); }

  /// The colour that tells which adapters take a rate: that of the label that names those adapters,
  /// or the system's for all three. Nothing when no label names them.
  [[nodiscard]] std::optional<COLORREF> ColourFor(std::int32_t rate) {
    CanusbBinding canusb(memory_.canusbdrv, CAN_u_, CAN_d_);
    InterfaceBinding board(memory_.IFCan, IfCan_u_, IfCan_d_);
    KvaserBinding kvaser(memory_.canlib32, kvCan_u_, kvCan_d_);
    if (!canusb.TakeRate(rate)) return std::nullopt;
    const bool by_board = board.TakeRate(rate);
    const bool by_kvaser = kvaser.TakeRate(rate);
    if (by_board && by_kvaser) return COLORREF{0};
    if (by_board) return std::nullopt;
    return ControlColour(Control(by_kvaser ? id::Label9 : id::Label6));
  }

  AllWindows windows_;
  HWND dialog_ = nullptr;
  memory::MemoryPlatform memory_;
  CANUSB CAN_u_;
  CAN_DB CAN_d_;
  InterfaceCAN IfCan_u_;
  CAN_DB_Interface IfCan_d_;
  KvaserCAN kvCan_u_;
  CAN_DB_Kvaser kvCan_d_;
};

TEST_F(RateColours, AreThoseOfTheLabelsThatNameTheAdaptersTakingTheRate) {
  EXPECT_EQ(WindowText(Control(id::Label9)), u"紫・・・CANUSB、Kvaser");
  EXPECT_EQ(WindowText(Control(id::Label6)), u"青・・・CANUSBのみ");
  EXPECT_NE(ControlColour(Control(id::Label9)), ControlColour(Control(id::Label6)));
  for (std::int32_t rate = 0; rate <= 8; ++rate) {
    const auto colour = ColourFor(rate);
    ASSERT_TRUE(colour.has_value()) << rate;
    EXPECT_EQ(ControlColour(Control(id::RB_BitRate_0 + rate)), *colour) << rate;
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
