#pragma once

#include <cstdint>

namespace tolvane::platform::windows {

/// What the main window tells the logic. An event comes through the event gate unless its comment
/// says otherwise.
class Form1Events {
 public:
  virtual ~Form1Events() = default;

  /// A click on a button, a menu command, or a selected line of the device list, by its number in
  /// the namespace id. Disabled ones never come. The click on Bt_Connect comes by a posted message.
  /// A line selected in code is told at once.
  virtual void Command(int command) = 0;

  virtual void ViewSelectionChanged() = 0;
  virtual void ViewContextMenu() = 0;
  virtual void ViewGotFocus() = 0;
  /// F1.
  virtual void HelpKey() = 0;

  /// True when the window may close now; what is to be saved has been saved then. This and Unload
  /// come past the gate when the logic unloads the window itself or the Windows session ends.
  [[nodiscard]] virtual bool QueryUnload() = 0;
  virtual void Unload() = 0;
  /// The same question at the end of a Windows session, without the saving. Comes past the gate and
  /// changes nothing.
  [[nodiscard]] virtual bool ClosingIsRefused() const = 0;
  /// The session ends although closing is refused, or in a yield of closing. Comes past the
  /// gate: the process may be ended as soon as this returns.
  virtual void SessionEnds() = 0;
};

}  // namespace tolvane::platform::windows
