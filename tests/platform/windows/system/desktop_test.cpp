// Small facilities of the desktop: clock texts, the clipboard, the mark of the running program.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <thread>

#include "platform/windows/rich_text/clipboard.h"
#include "platform/windows/system/process.h"
#include "platform/windows/system/text.h"
#include "platform/windows/system/wall_clock.h"

// After windows.h, which it needs.
#include <oleauto.h>

namespace tolvane::platform::windows {
namespace {

class ClockTexts : public testing::Test {
 protected:
  void SetUp() override {
    if (PRIMARYLANGID(GetUserDefaultLangID()) != LANG_JAPANESE)
      GTEST_SKIP() << "the user's language is not Japanese";
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

constexpr std::int32_t kPatience = 5000;  // ms; the machine may be slow

TEST_F(ClipboardTest, HoldsPlainAndRichTextSideBySide) {
  WindowsClipboard clipboard(owner_);
  ASSERT_TRUE(clipboard.Replace(u"old", u"{\\rtf1 old}", kPatience));
  ASSERT_TRUE(clipboard.Replace(u"受信\r\n", u"{\\rtf1 x}", kPatience));
  EXPECT_TRUE(clipboard.GetFormat(Format::kPlainText));
  EXPECT_TRUE(clipboard.GetFormat(Format::kRichText));
  EXPECT_EQ(clipboard.GetText(Format::kPlainText, kPatience), u"受信\r\n");
  EXPECT_EQ(clipboard.GetText(Format::kRichText, kPatience), u"{\\rtf1 x}");
}

/// Another program: holds the clipboard in a thread of its own, until it is told to let go.
class Holder {
 public:
  Holder() {
    std::promise<void> held;
    auto holding = held.get_future();
    thread_ = std::thread([this, held = std::move(held)]() mutable {
      const HWND window = CreateWindowExW(0, WC_STATICW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                          nullptr, nullptr);
      while (!OpenClipboard(window)) Sleep(1);
      held.set_value();
      std::this_thread::sleep_for(let_go_after_.get_future().get());
      CloseClipboard();
      DestroyWindow(window);
    });
    holding.wait();
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;
  ~Holder() {
    if (!told_) LetGoAfter(std::chrono::milliseconds(0));
    thread_.join();
  }

  void LetGoAfter(std::chrono::milliseconds time) {
    told_ = true;
    let_go_after_.set_value(time);
  }

 private:
  std::promise<std::chrono::milliseconds> let_go_after_;
  bool told_ = false;
  std::thread thread_;
};

TEST_F(ClipboardTest, HeldByAnotherItTellsItsFormatsAndIsWaitedFor) {
  WindowsClipboard clipboard(owner_);
  ASSERT_TRUE(clipboard.Replace(u"theirs", u"", kPatience));
  {
    Holder holder;
    EXPECT_FALSE(clipboard.Replace(u"mine", u"mine", 20));
    EXPECT_TRUE(clipboard.GetFormat(Format::kPlainText));
    EXPECT_EQ(clipboard.GetText(Format::kPlainText, 20), u"");
    holder.LetGoAfter(std::chrono::milliseconds(50));
    EXPECT_EQ(clipboard.GetText(Format::kPlainText, kPatience), u"theirs");
  }
  Holder holder;
  holder.LetGoAfter(std::chrono::milliseconds(50));
  EXPECT_TRUE(clipboard.Replace(u"mine", u"mine", kPatience));
}

TEST_F(ClipboardTest, WaitsNoLongerThanItMay) {
  WindowsClipboard clipboard(owner_);
  const Holder holder;
  // The quickest of some tries: a slow machine may stand still in one of them.
  ULONGLONG quickest = kPatience;
  for (int i = 0; i < 5; ++i) {
    const ULONGLONG before = GetTickCount64();
    EXPECT_FALSE(clipboard.Replace(u"mine", u"mine", 20));
    quickest = std::min(quickest, GetTickCount64() - before);
  }
  EXPECT_LT(quickest, 1000U);
}

/// Another program that opens the clipboard at each change, as managers of the clipboard do, and
/// keeps what it finds.
class Watcher {
 public:
  Watcher() {
    std::promise<DWORD> started;
    auto id = started.get_future();
    thread_ = std::thread([this, &started] { Watch(started); });
    thread_id_ = id.get();
  }
  Watcher(const Watcher&) = delete;
  Watcher& operator=(const Watcher&) = delete;
  ~Watcher() { Stop(); }

  /// Whether any change was seen, and whether one left less than both texts.
  struct Findings {
    int changes = 0;
    int halves = 0;
  };
  Findings Stop() {
    if (thread_.joinable()) {
      // The last change is told by a message.
      for (const ULONGLONG end = GetTickCount64() + kPatience;
           seen_ != GetClipboardSequenceNumber() && GetTickCount64() < end;) {
        Sleep(1);
      }
      PostThreadMessageW(thread_id_, WM_QUIT, 0, 0);
      thread_.join();
    }
    return findings_;
  }

 private:
  void Watch(std::promise<DWORD>& started) {
    const HWND window =
        CreateWindowExW(0, WC_STATICW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    AddClipboardFormatListener(window);
    started.set_value(GetCurrentThreadId());
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
      if (message.message == WM_CLIPBOARDUPDATE) Look(window);
      DispatchMessageW(&message);
    }
    RemoveClipboardFormatListener(window);
    DestroyWindow(window);
  }
  void Look(HWND window) {
    while (!OpenClipboard(window)) Sleep(0);
    ++findings_.changes;
    const UINT rich_text = RegisterClipboardFormatW(L"Rich Text Format");
    if (GetClipboardData(CF_UNICODETEXT) == nullptr || GetClipboardData(rich_text) == nullptr) {
      ++findings_.halves;
    }
    Sleep(5);  // what it does with them
    seen_ = GetClipboardSequenceNumber();
    CloseClipboard();
  }

  std::atomic<DWORD> seen_ = 0;  // the last change that was looked at
  std::thread thread_;
  DWORD thread_id_ = 0;
  Findings findings_;
};

TEST_F(ClipboardTest, NoOtherProgramSeesOneTextWithoutTheOther) {
  WindowsClipboard clipboard(owner_);
  ASSERT_TRUE(clipboard.Replace(u"first", u"first", kPatience));
  Watcher watcher;
  for (int i = 0; i < 20; ++i) {
    EXPECT_TRUE(clipboard.Replace(u"text", u"{\\rtf1 text}", kPatience)) << i;
    Sleep(1);
  }
  const Watcher::Findings findings = watcher.Stop();
  EXPECT_GT(findings.changes, 0);
  EXPECT_EQ(findings.halves, 0);
}

}  // namespace
}  // namespace tolvane::platform::windows
