#include "platform/windows/dialogs/message_box.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/windows/system/text.h"
#include "tests/platform/windows/all_windows_bed.h"
#include "tests/platform/windows/dialogs/system_dialog.h"
#include "tests/platform/windows/resources/icon_pixels.h"

namespace tolvane::platform::windows {
namespace {

/// The icon that a box shows, null for none.
HICON ShownIcon(HWND box) {
  HICON icon = nullptr;
  ForEachShownChild(box, [&icon](HWND child) {
    const bool is_icon = ClassOf(child) == u"static" &&
                         (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
    if (is_icon) icon = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
  });
  return icon;
}

/// Whether it is that icon of the system.
bool Is(HICON icon, const wchar_t* system_icon) {
  const int size = GetSystemMetrics(SM_CXICON);
  return icon != nullptr &&
         IconPixels(icon, size) == IconPixels(LoadIconW(nullptr, system_icon), size);
}

bool Has(HWND box, int button) {
  const HWND found = GetDlgItem(box, button);
  return found != nullptr && (GetWindowLongPtrW(found, GWL_STYLE) & WS_VISIBLE) != 0;
}

class MessageBoxTest : public testing::Test {
 protected:
  void TearDown() override { DestroyWindow(owner_); }

  void ExpectWords(HWND box) const {
    EXPECT_EQ(WindowText(box), u"title");
    EXPECT_NE(FindWindowExW(box, nullptr, L"Static", L"text"), nullptr);
  }

  HWND owner_ = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
  EventGate gate_;
  WindowsMessageBox box_{gate_, owner_};
};

TEST_F(MessageBoxTest, AFailureHasTheStopIconAndOneButton) {
  const WhileAsked asked(
      owner_, [this] { box_.Critical(u"text", u"title"); },
      [this](HWND box) {
        ExpectWords(box);
        EXPECT_TRUE(Is(ShownIcon(box), IDI_HAND));
        EXPECT_FALSE(Is(ShownIcon(box), IDI_QUESTION)) << "the two icons do not differ here";
        EXPECT_TRUE(Has(box, IDOK) ||
                    Has(box, IDCANCEL));  // a single OK button may have either number
        EXPECT_FALSE(Has(box, IDYES) || Has(box, IDNO));
      });
}

TEST_F(MessageBoxTest, APlainMessageHasNoIcon) {
  const WhileAsked asked(
      owner_, [this] { box_.Plain(u"text", u"title"); },
      [this](HWND box) {
        ExpectWords(box);
        EXPECT_EQ(ShownIcon(box), nullptr);
        EXPECT_FALSE(Has(box, IDYES) || Has(box, IDNO));
      });
}

TEST_F(MessageBoxTest, AQuestionHasItsIconTwoButtonsAndNoFirst) {
  for (const WPARAM answer : {IDYES, IDNO}) {
    bool yes = false;
    const WhileAsked asked(
        owner_, [&] { yes = box_.AskYesNo(u"text", u"title"); },
        [&](HWND box) {
          ExpectWords(box);
          EXPECT_TRUE(Is(ShownIcon(box), IDI_QUESTION));
          EXPECT_TRUE(Has(box, IDYES) && Has(box, IDNO));
          EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDNO);
          Answer(box, answer);
        });
    EXPECT_EQ(yes, answer == IDYES);
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
