#include "platform/windows/dialogs/control_binder.h"

#include "platform/windows/dialogs/control_colour.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {

void ControlBinder::operator()(int control, Choice& choice) const {
  const HWND child = Child(control);
  if (way_ == Way::kTake) {
    choice.checked = SendMessageW(child, BM_GETCHECK, 0, 0) == BST_CHECKED;
    return;
  }
  SendMessageW(child, BM_SETCHECK, choice.checked ? BST_CHECKED : BST_UNCHECKED, 0);
  EnableWindow(child, choice.enabled);
}

void ControlBinder::operator()(int control, TextControl& text) const {
  const HWND child = Child(control);
  if (way_ == Way::kTake) {
    text.text = WindowText(child);
    return;
  }
  // Setting the same text again would move the caret.
  if (WindowText(child) != text.text) SetWindowTextW(child, Wide(text.text));
  SetControlColour(child, static_cast<COLORREF>(text.colour));
  EnableWindow(child, text.enabled);
}

void ControlBinder::operator()(int control, const ColourButton& button) const {
  if (way_ == Way::kTake) return;
  SetControlColour(Child(control), static_cast<COLORREF>(button.back_colour));
}

void ControlBinder::operator()(int control, const GroupBox& group) const {
  if (way_ == Way::kShow) EnableWindow(Child(control), group.enabled);
}

}  // namespace tolvane::platform::windows
