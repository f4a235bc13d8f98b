#pragma once

#include "platform/windows/system/handle.h"

struct IAccPropServices;

namespace tolvane::platform::windows {

/// What a screen reader tells of a control that neither has a text of its own nor stands behind its
/// label. A control's text is left as it is. On a thread without COM, and where the system has no
/// such service, nothing happens.
class AccessibleNames {
 public:
  AccessibleNames();
  ~AccessibleNames();
  AccessibleNames(const AccessibleNames&) = delete;
  AccessibleNames& operator=(const AccessibleNames&) = delete;

  void Name(HWND control, const wchar_t* name) const;
  /// A picture that can be pressed is told as a push button.
  void PushButton(HWND control) const;
  /// Gives back what the children of `window` had, before they are destroyed.
  void ForgetChildren(HWND window) const;

 private:
  ComHandle<IAccPropServices> services_;
};

}  // namespace tolvane::platform::windows
