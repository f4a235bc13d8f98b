// What a screen reader finds: every control has a name, and what can be pressed says so.
#include <gtest/gtest.h>
#include <initguid.h>

#include <map>
#include <set>
#include <string>

#include "tests/platform/windows/all_windows_bed.h"

#include <oleacc.h>
#include <tolvane_control_ids.h>

namespace tolvane::platform::windows {
namespace {

/// The service that keeps names for screen readers, as strict as the real one, and its own class
/// object.
class NameService final : public IAccPropServices, public IClassFactory {
 public:
  std::map<HWND, std::wstring> names;
  std::map<HWND, LONG> roles;

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    if (id == IID_IAccPropServices || id == IID_IUnknown) {
      *object = static_cast<IAccPropServices*>(this);
    } else if (id == IID_IClassFactory) {
      *object = static_cast<IClassFactory*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    return S_OK;
  }
  ULONG WINAPI AddRef() override { return 2; }
  ULONG WINAPI Release() override { return 1; }

  HRESULT WINAPI CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    return outer != nullptr ? CLASS_E_NOAGGREGATION : QueryInterface(id, object);
  }
  HRESULT WINAPI LockServer(WINBOOL) override { return S_OK; }

  HRESULT WINAPI SetHwndPropStr(HWND hwnd, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override {
    if (!IsControl(hwnd, object, child) || property != PROPID_ACC_NAME) return E_INVALIDARG;
    names[hwnd] = text;
    return S_OK;
  }
  HRESULT WINAPI SetHwndProp(HWND hwnd, DWORD object, DWORD child, MSAAPROPID property,
                             VARIANT value) override {
    const bool is_role = property == PROPID_ACC_ROLE && value.vt == VT_I4;
    if (!IsControl(hwnd, object, child) || !is_role) return E_INVALIDARG;
    roles[hwnd] = value.lVal;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND hwnd, DWORD object, DWORD child, const MSAAPROPID* properties,
                                int count) override {
    if (!IsControl(hwnd, object, child)) return E_INVALIDARG;
    for (int i = 0; i < count; ++i) {
      if (properties[i] == PROPID_ACC_NAME) names.erase(hwnd);
      if (properties[i] == PROPID_ACC_ROLE) roles.erase(hwnd);
    }
    return S_OK;
  }

  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }

 private:
  static bool IsControl(HWND hwnd, DWORD object, DWORD child) {
    return IsWindow(hwnd) && object == static_cast<DWORD>(OBJID_CLIENT) && child == CHILDID_SELF;
  }
};

class ScreenReader : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    ASSERT_EQ(CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(&service_),
                                    CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_),
              S_OK);
  }
  void TearDown() override {
    CoRevokeClassObject(registration_);
    CoUninitialize();
  }

  /// What a screen reader tells of a control: the name that it was given; the text of a button or
  /// label; of a box, the label right before it.
  [[nodiscard]] std::wstring NameOf(HWND control) const {
    const auto given = service_.names.find(control);
    if (given != service_.names.end()) return given->second;
    const String window_class = ClassOf(control);
    if (window_class == u"button" || window_class == u"static") return TextOf(control);
    HWND before = GetWindow(control, GW_HWNDPREV);
    while (before != nullptr && (GetWindowLongPtrW(before, GWL_STYLE) & WS_VISIBLE) == 0) {
      before = GetWindow(before, GW_HWNDPREV);
    }
    return before != nullptr && ClassOf(before) == u"static" ? TextOf(before) : L"";
  }
  static std::wstring TextOf(HWND control) {
    const String text = WindowText(control);
    return {WideData(StringView(text)), text.size()};
  }

  static bool IsRadio(HWND control) {
    return (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
  }

  /// Every control has a name, and no two that can be worked have the same one.
  void ExpectNames(HWND window, std::set<int> may_share = {}) const {
    ASSERT_NE(window, nullptr);
    std::map<std::wstring, int> taken;
    ForEachShownChild(window, [&](HWND control) {
      const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
      const bool is_frame =
          ClassOf(control) == u"static" && (style & SS_TYPEMASK) == SS_ETCHEDFRAME;
      if (is_frame) return;
      const int number = GetDlgCtrlID(control);
      const std::wstring name = NameOf(control);
      EXPECT_FALSE(name.empty()) << number;
      if ((style & WS_TABSTOP) == 0 || may_share.contains(number)) return;
      EXPECT_NE(name, L"～") << number;
      // The frame around them distinguishes the choices of one setting from those of another.
      if (IsRadio(control)) return;
      const auto [other, is_new] = taken.emplace(name, number);
      EXPECT_TRUE(is_new) << number << " is called like " << other->second;
    });
  }

  NameService service_;
  DWORD registration_ = 0;
};

TEST_F(ScreenReader, FindsANameAtEveryControlOfEveryWindow) {
  AllWindows windows;
  ASSERT_TRUE(windows.Made());
  ShowWindow(GetDlgItem(windows.Main(), id::Pic_Caution), SW_SHOWNA);
  ExpectNames(windows.Main());
  EXPECT_EQ(NameOf(GetDlgItem(windows.Main(), id::RTB_MainView)), L"受信画面");
  EXPECT_EQ(NameOf(FindWindowExW(windows.Main(), nullptr, LiveSurface::kClassName, nullptr)),
            L"受信画面");
  ExpectNames(windows.OpenVersion());
  // The pictures next to a box do the same.
  const std::set<int> pictures{id::Img_save_folder, id::Img_save_folder_path,
                               id::Img_Log_save_folder, id::Img_Log_save_folder_path};
  for (int i = 0; i < 3; ++i) {
    SCOPED_TRACE(i);
    const HWND dialog = windows.OpenSettings(i);
    ExpectNames(dialog, pictures);
    ExpectNames(AllWindows::OpenHelp(dialog, id::Img_Help_Setting));
    AllWindows::Close(dialog);
  }
}

TEST_F(ScreenReader, TellsTheRowsOfATableApart) {
  AllWindows windows;
  const HWND dialog = windows.OpenSettings(1);
  EXPECT_EQ(NameOf(GetDlgItem(dialog, id::CB_DisableID_0)), L"1行目の除外");
  EXPECT_EQ(NameOf(GetDlgItem(dialog, id::TB_DisableID_End_7)), L"8行目の除外の末尾のCAN ID");
  EXPECT_EQ(NameOf(GetDlgItem(dialog, id::Bt_MarkerColor_Dialog_2)), L"3行目のマーカーの色");
  AllWindows::Close(dialog);
}

TEST_F(ScreenReader, FindsPushButtonsInPicturesThatCanBePressed) {
  AllWindows windows;
  const auto is_button = [this](HWND window, int control) {
    const auto role = service_.roles.find(GetDlgItem(window, control));
    return role != service_.roles.end() && role->second == ROLE_SYSTEM_PUSHBUTTON;
  };
  const HWND dialog = windows.OpenSettings(2);
  for (const int control :
       {id::Img_Help_Setting, id::Img_save_folder, id::Img_Log_save_folder_path}) {
    EXPECT_TRUE(is_button(dialog, control)) << control;
  }
  AllWindows::Close(dialog);
  const HWND version = windows.OpenVersion();
  EXPECT_TRUE(is_button(version, id::PicURL));
  EXPECT_TRUE(is_button(version, id::Lb_OK));
}

TEST_F(ScreenReader, KeepsNothingOfAWindowThatIsGone) {
  {
    AllWindows windows;
    const std::size_t of_main = service_.names.size();
    EXPECT_GT(of_main, 0U);
    const HWND dialog = windows.OpenSettings(1);
    const std::size_t of_both = service_.names.size();
    EXPECT_GT(of_both, of_main);
    AllWindows::OpenHelp(dialog, id::Img_Help_Setting);
    EXPECT_GT(service_.names.size(), of_both);
    windows.Dialogs().Unload(OtherForm::FormHelp);
    EXPECT_EQ(service_.names.size(), of_both);
    AllWindows::Close(dialog);
    EXPECT_EQ(service_.names.size(), of_main);
    windows.OpenVersion();
    windows.Dialogs().Unload(OtherForm::FormVersion);
    EXPECT_EQ(service_.names.size(), of_main);
  }
  EXPECT_TRUE(service_.names.empty());
  EXPECT_TRUE(service_.roles.empty());
}

}  // namespace
}  // namespace tolvane::platform::windows
