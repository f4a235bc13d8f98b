#include "platform/windows/dialogs/control_binder.h"

#include "platform/windows/dialogs/control_colour.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {

void ControlBinder::operator()(int id, Choice& choice) const {
  const HWND control = Control(id);
  if (way_ == Way::kTake) {
    choice.checked = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
    return;
  }
  SendMessageW(control, BM_SETCHECK, choice.checked ? BST_CHECKED : BST_UNCHECKED, 0);
  EnableWindow(control, choice.enabled);
}

void ControlBinder::operator()(int id, TextControl& text) const {
  const HWND control = Control(id);
  if (way_ == Way::kTake) {
    text.text = WindowText(control);
    return;
  }
  // Setting the same text again would move the caret.
  if (WindowText(control) != text.text) SetWindowTextW(control, Wide(text.text));
  SetControlColour(control, static_cast<COLORREF>(text.colour));
  EnableWindow(control, text.enabled);
}

void ControlBinder::operator()(int id, const ColourButton& button) const {
  if (way_ == Way::kShow) SetControlColour(Control(id), static_cast<COLORREF>(button.back_colour));
}

void ControlBinder::operator()(int id, const GroupBox& group) const {
  if (way_ == Way::kShow) EnableWindow(Control(id), group.enabled);
}

}  // namespace tolvane::platform::windows
