// The support library as built, and what becomes of libraries of the system that cannot be used.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "platform/windows/system/file_services.h"
#include "platform/windows/system/process.h"
#include "platform/windows/system/support_library.h"
#include "tests/platform/windows/system/scratch_folder.h"

namespace tolvane::platform::windows {
namespace {

String ProgramFile(StringView name) {
  return ExecutableFolder() + u"\\..\\..\\..\\program\\" + String(name);
}

std::string ProgramFileContent(StringView name) {
  const auto read = ReadBytes(ProgramFile(name), 1 << 26);
  return read ? std::string(reinterpret_cast<const char*>(read->bytes.data()), read->bytes.size())
              : std::string();
}

TEST(Qxt100, ClockGivesWholeMillisecondsAndNeverGoesBack) {
  WindowsSupportLibrary library(ProgramFile(u"qxt100.dll"));
  ASSERT_TRUE(library.Load());
  const double start = library.qx_timeGetTime();
  const ULONGLONG ticks = GetTickCount64();
  double last = start;
  while (last < start + 100) {
    const double now = library.qx_timeGetTime();
    ASSERT_EQ(now, std::floor(now));
    ASSERT_GE(now, last);
    last = now;
  }
  EXPECT_NEAR(static_cast<double>(GetTickCount64() - ticks), 100, 50) << "not milliseconds";
}

TEST(Qxt100, ClockTellsEveryMillisecondApart) {
  WindowsSupportLibrary library(ProgramFile(u"qxt100.dll"));
  ASSERT_TRUE(library.Load());
  WindowsTimerResolution winmm(WindowsSpecialFolders().System() + u"\\winmm.dll");
  winmm.timeBeginPeriod(1);
  // Asked on and on. What else the machine has to do takes longer steps in between; a clock that is
  // coarser never takes one of a millisecond.
  constexpr int kSteps = 100;
  int steps = 0;
  double last = library.qx_timeGetTime();
  for (const double end = last + 10'000; steps < kSteps && last < end;) {
    const double now = library.qx_timeGetTime();
    if (now == last) continue;
    if (now - last <= 1) ++steps;
    last = now;
  }
  EXPECT_EQ(steps, kSteps);
  winmm.timeEndPeriod(1);
}

TEST(Qxt100, FadesByItsExport) {
  WindowsSupportLibrary library(ProgramFile(u"qxt100.dll"));
  ASSERT_TRUE(library.Load());
  EXPECT_EQ(library.ColorAttenuation(0x4080FF, 60000, 60000), 0x4080FF);
  EXPECT_EQ(library.ColorAttenuation(0x4080FF, 30000, 60000), 0x20407F);
  EXPECT_EQ(library.ColorAttenuation(0x4080FF, 0, 60000), 0);
}

TEST(Library, StaysLoadedWhenItsObjectHasGone) {
  {
    WindowsSupportLibrary library(ProgramFile(u"qxt100.dll"));
    ASSERT_TRUE(library.Load());
  }
  EXPECT_NE(GetModuleHandleW(L"qxt100.dll"), nullptr);
}

TEST(UnusableLibrary, MissingFileIsNotLoaded) {
  EXPECT_FALSE(WindowsSupportLibrary(ProgramFile(u"missing.dll")).Load());
}

TEST(UnusableLibrary, TextInPlaceOfALibraryIsNotLoaded) {
  const ScratchFolder folder;
  ASSERT_TRUE(folder.Put(u"qxt100.dll", "this is no library"));
  EXPECT_FALSE(WindowsSupportLibrary(folder / u"qxt100.dll").Load());
}

TEST(UnusableLibrary, OtherBitnessIsNotLoaded) {
  const ScratchFolder folder;
  std::string content = ProgramFileContent(u"qxt100.dll");
  ASSERT_GT(content.size(), 0x40U);
  // The machine field after the signature, whose position is the word at 0x3C.
  const auto header =
      static_cast<unsigned char>(content[0x3C]) + (static_cast<unsigned char>(content[0x3D]) << 8U);
  const bool is_x64 = sizeof(void*) == 8;
  content.replace(header + 4U, 2, is_x64 ? "\x4c\x01" : "\x64\x86", 2);
  ASSERT_TRUE(folder.Put(u"qxt100.dll", content));
  EXPECT_FALSE(WindowsSupportLibrary(folder / u"qxt100.dll").Load());
}

/// A library beside the tests that stands for winmm.dll; loaded already, so that it counts on when
/// the program lets it go.
class CountingTimer {
 public:
  explicit CountingTimer(StringView file)
      : path_(ExecutableFolder() + u'\\' + String(file)), module_(LoadLibraryW(Wide(path_))) {
    const FARPROC calls = module_ ? GetProcAddress(module_.Get(), "TimerCalls") : nullptr;
    EXPECT_NE(calls, nullptr) << "error " << GetLastError();
    std::memcpy(&calls_, &calls, sizeof(calls_));
    before_ = All().size();
  }

  [[nodiscard]] const String& Path() const { return path_; }
  /// Since this object was made, a line each.
  [[nodiscard]] std::string Calls() const { return All().substr(before_); }

 private:
  [[nodiscard]] std::string All() const { return calls_ == nullptr ? "" : calls_(); }

  String path_;
  ModuleHandle module_;
  const char*(__stdcall* calls_)() = nullptr;
  std::size_t before_ = 0;
};

TEST(TimerResolution, IsBegunAndEndedInTheLibraryByThePeriodThatWasAsked) {
  const CountingTimer timer(u"tolvane_counting_timer.dll");
  WindowsTimerResolution winmm(timer.Path());
  EXPECT_EQ(timer.Calls(), "");
  winmm.timeBeginPeriod(1);
  EXPECT_EQ(timer.Calls(), "begin 1\n");
  winmm.timeEndPeriod(1);
  EXPECT_EQ(timer.Calls(), "begin 1\nend 1\n");
  winmm.timeBeginPeriod(0xFFFF'FFFE);
  winmm.timeEndPeriod(0xFFFF'FFFF);
  EXPECT_EQ(timer.Calls(), "begin 1\nend 1\nbegin 4294967294\nend 4294967295\n");
}

TEST(UnusableLibrary, WithoutTheTimerServiceARunGoesOn) {
  // What could not be ended is not begun either.
  const CountingTimer endless(u"tolvane_endless_timer.dll");
  for (const String& path : {ProgramFile(u"missing.dll"), endless.Path()}) {
    WindowsTimerResolution winmm(path);
    winmm.timeBeginPeriod(1);
    winmm.timeEndPeriod(1);
  }
  EXPECT_EQ(endless.Calls(), "");
}

}  // namespace
}  // namespace tolvane::platform::windows
