#pragma once

#include <cstdint>

namespace tolvane::platform::windows {

/// What the main window tells the logic. All but the last two come through the event gate.
class Form1Events {
 public:
  virtual ~Form1Events() = default;

  /// A click on a button, a menu command, or a selected line of the device list, by its number in
  /// resource.h. Disabled ones never come. The click on Bt_Connect comes by a posted message.
  virtual void Command(int id) = 0;

  virtual void ViewSelectionChanged() = 0;
  virtual void ViewContextMenu() = 0;
  virtual void ViewGotFocus() = 0;
  /// F1.
  virtual void HelpKey() = 0;

  /// True when the window may close now; what is to be saved has been saved then.
  [[nodiscard]] virtual bool QueryUnload() = 0;
  virtual void Unload() = 0;
  /// The same question at the end of a Windows session, without the saving. It comes past the gate
  /// and changes nothing.
  [[nodiscard]] virtual bool ClosingIsRefused() const = 0;
  /// The session ends although closing is refused, or in a yield of closing. It comes past the gate
  /// too: the process may be ended as soon as this returns.
  virtual void SessionEnds() = 0;
};

}  // namespace tolvane::platform::windows
