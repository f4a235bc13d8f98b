// The properties' numbers are made here, as not all libraries of the compiler hold them.
#include <initguid.h>

#include "platform/windows/window_parts/accessible_names.h"

#include <oleacc.h>

namespace tolvane::platform::windows {
namespace {

constexpr DWORD kControl = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

AccessibleNames::AccessibleNames() {
  void* services = nullptr;
  if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IAccPropServices, &services))) {
    services_ = ComHandle<IAccPropServices>(static_cast<IAccPropServices*>(services));
  }
}

AccessibleNames::~AccessibleNames() = default;

void AccessibleNames::Name(HWND control, const wchar_t* name) const {
  if (services_) {
    services_.Get()->SetHwndPropStr(control, kControl, CHILDID_SELF, PROPID_ACC_NAME, name);
  }
}

void AccessibleNames::PushButton(HWND control) const {
  if (!services_) return;
  VARIANT role{};
  role.vt = VT_I4;
  role.lVal = ROLE_SYSTEM_PUSHBUTTON;
  services_.Get()->SetHwndProp(control, kControl, CHILDID_SELF, PROPID_ACC_ROLE, role);
}

void AccessibleNames::ForgetChildren(HWND window) const {
  if (!services_) return;
  const MSAAPROPID properties[] = {PROPID_ACC_NAME, PROPID_ACC_ROLE};
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    services_.Get()->ClearHwndProps(child, kControl, CHILDID_SELF, properties, 2);
  }
}

}  // namespace tolvane::platform::windows
