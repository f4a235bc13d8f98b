#pragma once

#include <functional>
#include <utility>

#include "platform/memory/memory_platform.h"
#include "tests/faults/fault_plan.h"
#include "tests/faults/written_logs.h"

namespace tolvane::faults {

// The smaller services of a machine, each of whose operations can fail. What fails is not carried
// out. What has no failure is not here: code pages, the colour fade, the question for another
// instance, controls.

class FaultyClipboard final : public platform::Clipboard {
 public:
  FaultyClipboard(platform::Clipboard& clipboard, FaultPlan& plan)
      : clipboard_(clipboard), plan_(plan) {}

  bool Replace(StringView plain_text, StringView rich_text, std::int32_t patience) override {
    return !Fails("Replace") && clipboard_.Replace(plain_text, rich_text, patience);
  }
  bool GetFormat(Format format) override {
    return !Fails("GetFormat") && clipboard_.GetFormat(format);
  }
  String GetText(Format format, std::int32_t patience) override {
    return Fails("GetText") ? String() : clipboard_.GetText(format, patience);
  }

 private:
  [[nodiscard]] bool Fails(std::string_view call) { return plan_.Fails(Subject::kClipboard, call); }

  platform::Clipboard& clipboard_;
  FaultPlan& plan_;
};

class FaultyTimer final : public platform::Timer {
 public:
  FaultyTimer(platform::Timer& timer, FaultPlan& plan) : timer_(timer), plan_(plan) {}

  bool Enabled() const override { return timer_.Enabled(); }
  void Enabled(bool enabled) override {
    const bool fails = enabled && plan_.Fails(Subject::kTimer, "Enabled");
    timer_.Enabled(enabled && !fails);
  }
  std::int32_t Interval() const override { return timer_.Interval(); }
  void OnTick(std::function<void()> handler) override { timer_.OnTick(std::move(handler)); }

 private:
  platform::Timer& timer_;
  FaultPlan& plan_;
};

/// A clock that fails stands still.
class FaultyLibrary final : public platform::SupportLibrary {
 public:
  FaultyLibrary(platform::SupportLibrary& library, FaultPlan& plan)
      : library_(library), plan_(plan) {}

  bool Load() override { return !plan_.Fails(Subject::kClock, "Load") && library_.Load(); }
  double qx_timeGetTime() override {
    if (!plan_.Fails(Subject::kClock, "qx_timeGetTime")) now_ = library_.qx_timeGetTime();
    return now_;
  }
  std::int32_t ColorAttenuation(std::int32_t colour, std::int32_t remaining,
                                std::int32_t total) override {
    return library_.ColorAttenuation(colour, remaining, total);
  }

 private:
  platform::SupportLibrary& library_;
  FaultPlan& plan_;
  double now_ = 0.0;
};

class FaultyResolution final : public platform::TimerResolution {
 public:
  FaultyResolution(platform::TimerResolution& winmm, FaultPlan& plan)
      : winmm_(winmm), plan_(plan) {}

  void timeBeginPeriod(std::uint32_t period) override {
    if (!plan_.Fails(Subject::kTimer, "timeBeginPeriod")) winmm_.timeBeginPeriod(period);
  }
  void timeEndPeriod(std::uint32_t period) override {
    if (!plan_.Fails(Subject::kTimer, "timeEndPeriod")) winmm_.timeEndPeriod(period);
  }

 private:
  platform::TimerResolution& winmm_;
  FaultPlan& plan_;
};

/// A box that the system has no room for is not shown, and a question then answered with no.
class FaultyMessageBox final : public platform::MessageBox {
 public:
  FaultyMessageBox(platform::MessageBox& box, FaultPlan& plan) : box_(box), plan_(plan) {}

  void Critical(StringView text, StringView title) override {
    if (!Fails("MessageBox")) box_.Critical(text, title);
  }
  void Plain(StringView text, StringView title) override {
    if (!Fails("MessageBox")) box_.Plain(text, title);
  }
  bool AskYesNo(StringView text, StringView title) override {
    return !Fails("MessageBox") && box_.AskYesNo(text, title);
  }

 private:
  [[nodiscard]] bool Fails(std::string_view call) { return plan_.Fails(Subject::kSystem, call); }

  platform::MessageBox& box_;
  FaultPlan& plan_;
};

class FaultyFolders final : public platform::SpecialFolders {
 public:
  FaultyFolders(platform::SpecialFolders& folders, FaultPlan& plan)
      : folders_(folders), plan_(plan) {}

  String Desktop() override {
    return plan_.Fails(Subject::kSystem, "Desktop") ? String() : folders_.Desktop();
  }
  String System() override {
    return plan_.Fails(Subject::kSystem, "System") ? String() : folders_.System();
  }

 private:
  platform::SpecialFolders& folders_;
  FaultPlan& plan_;
};

/// The present time cannot fail, and is asked for as a log's file begins.
class FaultyWallClock final : public platform::WallClock {
 public:
  FaultyWallClock(platform::WallClock& clock, FaultPlan& plan, WrittenLogs& logs)
      : clock_(clock), plan_(plan), logs_(logs) {}

  platform::LocalTime Now() override {
    logs_.BeginFile();
    return clock_.Now();
  }
  String GeneralDate(const platform::LocalTime& time) override {
    return plan_.Fails(Subject::kSystem, "GeneralDate") ? String() : clock_.GeneralDate(time);
  }
  String ShortWeekday(const platform::LocalTime& time) override {
    return plan_.Fails(Subject::kSystem, "ShortWeekday") ? String() : clock_.ShortWeekday(time);
  }

 private:
  platform::WallClock& clock_;
  FaultPlan& plan_;
  WrittenLogs& logs_;
};

class FaultyCursors final : public platform::Cursors {
 public:
  FaultyCursors(platform::Cursors& cursors, FaultPlan& plan) : cursors_(cursors), plan_(plan) {}
  std::int32_t LoadHand() override {
    return plan_.Fails(Subject::kSystem, "LoadHand") ? 0 : cursors_.LoadHand();
  }

 private:
  platform::Cursors& cursors_;
  FaultPlan& plan_;
};

class FaultyProtection final : public platform::RunProtection {
 public:
  FaultyProtection(platform::RunProtection& protection, FaultPlan& plan)
      : protection_(protection), plan_(plan) {}
  void Begin() override {
    if (!plan_.Fails(Subject::kSystem, "RunProtection.Begin")) protection_.Begin();
  }
  void End() override {
    if (!plan_.Fails(Subject::kSystem, "RunProtection.End")) protection_.End();
  }

 private:
  platform::RunProtection& protection_;
  FaultPlan& plan_;
};

}  // namespace tolvane::faults
