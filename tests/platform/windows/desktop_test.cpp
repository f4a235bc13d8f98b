// Small facilities of the desktop: clock texts, the clipboard, the mark of the running program.
#include <gtest/gtest.h>

#include "platform/windows/clipboard.h"
#include "platform/windows/process.h"
#include "platform/windows/text.h"
#include "platform/windows/wall_clock.h"

// After windows.h, which it needs.
#include <oleauto.h>

namespace tolvane::platform::windows {
namespace {

class ClockTexts : public testing::Test {
 protected:
  void SetUp() override {
    if (PRIMARYLANGID(GetUserDefaultLangID()) != LANG_JAPANESE) GTEST_SKIP() << "not Japanese";
  }
  WindowsWallClock clock_;
};

TEST_F(ClockTexts, GeneralDateIsShortDateBlankLongTime) {
  EXPECT_EQ(clock_.GeneralDate({2026, 11, 20, 5, 8, 5, 7}), u"2026/11/20 8:05:07");
}

/// What the system's own conversion of a moment to text gives for a time of 20 November 2026.
String SystemGeneralDate(WORD hour, WORD minute, WORD second) {
  SYSTEMTIME system{2026, 11, 5, 20, hour, minute, second, 0};
  DATE moment = 0;
  BSTR written = nullptr;
  if (!SystemTimeToVariantTime(&system, &moment) ||
      VarBstrFromDate(moment, LOCALE_USER_DEFAULT, 0, &written) != S_OK) {
    return u"no date";
  }
  const String text(FromWide(written, SysStringLen(written)));
  SysFreeString(written);
  return text;
}

TEST_F(ClockTexts, GeneralDateIsThatOfTheSystemAndAtMidnightTheDateAlone) {
  EXPECT_EQ(clock_.GeneralDate({2026, 11, 20, 5, 0, 0, 0}), u"2026/11/20");
  const struct {
    WORD hour, minute, second;
  } rows[] = {{0, 0, 0}, {0, 0, 1}, {0, 1, 0}, {12, 0, 0}, {23, 59, 59}};
  for (const auto& [hour, minute, second] : rows) {
    EXPECT_EQ(clock_.GeneralDate({2026, 11, 20, 5, hour, minute, second}),
              SystemGeneralDate(hour, minute, second))
        << hour << ':' << minute << ':' << second;
  }
}

/// One of the user's regional settings, put back when the test ends.
class RegionalSetting {
 public:
  RegionalSetting(LCTYPE item, const wchar_t* value) : item_(item) {
    GetLocaleInfoW(LOCALE_USER_DEFAULT, item_, before_, kLongestSetting);
    SetLocaleInfoW(LOCALE_USER_DEFAULT, item_, value);
  }
  RegionalSetting(const RegionalSetting&) = delete;
  RegionalSetting& operator=(const RegionalSetting&) = delete;
  ~RegionalSetting() { SetLocaleInfoW(LOCALE_USER_DEFAULT, item_, before_); }

 private:
  static constexpr int kLongestSetting = 81;  // with its NUL

  LCTYPE item_;
  wchar_t before_[kLongestSetting];
};

TEST_F(ClockTexts, GeneralDateFollowsTheUsersSettings) {
  const LocalTime time{2026, 11, 2, 1, 8, 5, 7};
  const String before = clock_.GeneralDate(time);
  {
    const RegionalSetting date(LOCALE_SSHORTDATE, L"d.M.yy");
    const RegionalSetting clock(LOCALE_STIMEFORMAT, L"hh-mm-ss");
    EXPECT_EQ(clock_.GeneralDate(time), u"2.11.26 08-05-07");
  }
  EXPECT_EQ(clock_.GeneralDate(time), before);
}

TEST_F(ClockTexts, WeekdaysCountFromSunday) {
  const char16_t days[] = u"日月火水木金土";
  for (std::int32_t weekday = 0; weekday < 7; ++weekday) {
    EXPECT_EQ(clock_.ShortWeekday({2026, 3, 8 + weekday, weekday, 0, 0, 0}),
              String(1, days[weekday]));
  }
}

TEST(WallClock, NowIsAValidMoment) {
  const LocalTime now = WindowsWallClock().Now();
  EXPECT_GE(now.year, 2026);
  EXPECT_LE(now.month, 12);
  EXPECT_LE(now.weekday, 6);
  EXPECT_LE(now.second, 59);
}

TEST(SingleInstance, TheSecondOneSeesTheFirst) {
  WindowsSingleInstance first;
  WindowsSingleInstance second;
  EXPECT_FALSE(first.PrevInstance());
  EXPECT_TRUE(second.PrevInstance());
}

TEST(SingleInstance, OneThatMayNotBeTouchedIsSeenToo) {
  ACL nobody{};
  ASSERT_TRUE(InitializeAcl(&nobody, sizeof(nobody), ACL_REVISION));
  SECURITY_DESCRIPTOR descriptor{};
  ASSERT_TRUE(InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION));
  ASSERT_TRUE(SetSecurityDescriptorDacl(&descriptor, TRUE, &nobody, FALSE));
  SECURITY_ATTRIBUTES attributes{sizeof(attributes), &descriptor, FALSE};
  const KernelHandle elevated(CreateMutexW(&attributes, FALSE, L"Local\\TolvaneRunning"));
  ASSERT_TRUE(elevated);
  EXPECT_TRUE(WindowsSingleInstance().PrevInstance());
}

class ClipboardTest : public testing::Test {
 protected:
  void SetUp() override {
    owner_ = CreateWindowExW(0, WC_STATICW, L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                             nullptr, nullptr);
  }
  void TearDown() override { DestroyWindow(owner_); }

  HWND owner_ = nullptr;
};

using Format = Clipboard::Format;

TEST_F(ClipboardTest, HoldsPlainAndRichTextSideBySide) {
  WindowsClipboard clipboard(owner_);
  ASSERT_TRUE(clipboard.Clear());
  EXPECT_FALSE(clipboard.GetFormat(Format::kPlainText));
  EXPECT_EQ(clipboard.GetText(Format::kPlainText), u"");
  ASSERT_TRUE(clipboard.SetText(u"受信\r\n", Format::kPlainText));
  ASSERT_TRUE(clipboard.SetText(u"{\\rtf1 x}", Format::kRichText));
  EXPECT_TRUE(clipboard.GetFormat(Format::kPlainText));
  EXPECT_TRUE(clipboard.GetFormat(Format::kRichText));
  EXPECT_EQ(clipboard.GetText(Format::kPlainText), u"受信\r\n");
  EXPECT_EQ(clipboard.GetText(Format::kRichText), u"{\\rtf1 x}");
  EXPECT_TRUE(clipboard.Clear());
  EXPECT_FALSE(clipboard.GetFormat(Format::kRichText));
}

TEST_F(ClipboardTest, HeldOpenByAnotherItTellsItsFormatsAndRefusesTheRest) {
  WindowsClipboard clipboard(owner_);
  ASSERT_TRUE(clipboard.Clear());
  ASSERT_TRUE(clipboard.SetText(u"theirs", Format::kPlainText));
  const HWND another = CreateWindowExW(0, WC_STATICW, L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                       nullptr, nullptr, nullptr);
  ASSERT_TRUE(OpenClipboard(another));
  EXPECT_FALSE(clipboard.Clear());
  EXPECT_FALSE(clipboard.SetText(u"mine", Format::kPlainText));
  EXPECT_TRUE(clipboard.GetFormat(Format::kPlainText));
  EXPECT_EQ(clipboard.GetText(Format::kPlainText), u"");
  CloseClipboard();
  DestroyWindow(another);
  EXPECT_EQ(clipboard.GetText(Format::kPlainText), u"theirs");
}

}  // namespace
}  // namespace tolvane::platform::windows
