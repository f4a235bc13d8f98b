// A run from its beginning to its end without a mouse.
#include "tests/window/control_ids.h"
#include "tests/window/window_fixture.h"

#include "tools/drive/message_box.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

constexpr int kControls[] = {id::Cmb_Serect_Device, id::TB_ODB_Hard_Version, id::Bt_Connect,
                             id::Bt_Disconnect,     id::TB_Protocol,         id::TB_Status,
                             id::TB_LogComment,     id::Bt_SaveFile,         id::Bt_ViewClear,
                             id::RTB_MainView};

class Keyboard : public RealProgram {
 protected:
  /// The control with the focus, 0 without.
  static int Focused(const DrivenWindow& window) {
    for (const int control : kControls) {
      if (window.HasFocus(control)) return control;
    }
    return 0;
  }
  /// Presses Tab until the focus is on `control`; the presses, 0 when it never came there.
  static int TabTo(const DrivenWindow& window, int control) {
    for (int presses = 1; presses <= 12; ++presses) {
      const int before = Focused(window);
      window.PressKey(before, VK_TAB);
      WaitUntil([&] { return Focused(window) != before; }, std::chrono::seconds(5));
      if (Focused(window) == control) return presses;
    }
    return 0;
  }
  static bool Receiving(const DrivenWindow& window) {
    return WaitUntil([&] { return window.Text(id::TB_Status).starts_with(L"通信中"); });
  }
  static bool Idle(const DrivenWindow& window) {
    return WaitUntil([&] { return window.Enabled(id::Bt_Connect); });
  }
  /// The system reports the new focus before the button gets or loses the default ring.
  static bool BecomesDefault(const DrivenWindow& window, int control, bool is_default = true) {
    return WaitUntil([&] {
      const LONG_PTR kind = GetWindowLongPtrW(window.Control(control), GWL_STYLE) & BS_TYPEMASK;
      return (kind == BS_DEFPUSHBUTTON) == is_default;
    });
  }
};

TEST_F(Keyboard, EnterConnectsTabFindsDisconnectAndTheRingFollowsTheFocus) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const DrivenWindow window = StartProgram();
  ASSERT_TRUE(window.Exists());
  ASSERT_TRUE(WaitUntil([&] { return window.HasFocus(id::Bt_Connect); }));
  EXPECT_TRUE(BecomesDefault(window, id::Bt_Connect));
  window.PressKey(id::Bt_Connect, VK_RETURN);
  ASSERT_TRUE(Receiving(window));
  EXPECT_GT(TabTo(window, id::Bt_Disconnect), 0) << "Tab never reaches it in a run";
  window.PressKey(id::Bt_Disconnect, VK_RETURN);
  ASSERT_TRUE(Idle(window));
  EXPECT_TRUE(WaitUntil([&] { return window.HasFocus(id::TB_Status); }));
  for (const int control : {id::Bt_Connect, id::Bt_Disconnect, id::Bt_SaveFile, id::Bt_ViewClear}) {
    EXPECT_TRUE(BecomesDefault(window, control, false))
        << control << " keeps the ring without the focus";
  }
  EXPECT_GT(TabTo(window, id::RTB_MainView), 0);
  EXPECT_GT(TabTo(window, id::Bt_Connect), 0);
  EXPECT_TRUE(BecomesDefault(window, id::Bt_Connect));
  window.Close();
  EXPECT_EQ(program_->WaitForEnd(), 0u);
}

TEST_F(Keyboard, FunctionKeysConnectSaveAndDisconnect) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const DrivenWindow window = StartProgram();
  ASSERT_TRUE(window.Exists());
  ASSERT_TRUE(Idle(window));
  window.PressKey(id::TB_LogComment, VK_F5);
  ASSERT_TRUE(Receiving(window));
  window.PressKey(id::TB_Status, VK_F9);
  const auto message = WaitForMessage(program_->Id());
  ASSERT_TRUE(message.has_value());
  EXPECT_EQ(Utf8(message->text), Utf8(L"保存しました"));
  EXPECT_TRUE(Press(*message, IDOK));
  window.PressKey(id::TB_Status, VK_F6);
  ASSERT_TRUE(Idle(window));
  EXPECT_EQ(State(window), IdleState());
  window.Close();
  EXPECT_EQ(program_->WaitForEnd(), 0u);
}

}  // namespace
}  // namespace tolvane::window
