#include "receive/open_traits.h"

#include <gtest/gtest.h>

#include <string>

namespace tolvane {
namespace {

constexpr auto kCanusb = BindingKind::kCanusb;
constexpr auto kInterface = BindingKind::kInterface;
constexpr auto kKvaser = BindingKind::kKvaser;
constexpr BindingKind kBindings[] = {kCanusb, kInterface, kKvaser};
constexpr WorkerKind kWorkers[] = {WorkerKind::FormBG, WorkerKind::FormBG2, WorkerKind::FormBG_29,
                                   WorkerKind::FormBG2_29};

bool Is29(WorkerKind worker) {
  return worker == WorkerKind::FormBG_29 || worker == WorkerKind::FormBG2_29;
}
bool Excludes(WorkerKind worker) {
  return worker == WorkerKind::FormBG2 || worker == WorkerKind::FormBG2_29;
}

/// Calls `check` for each of the twelve, with its name in every failure.
template <typename Check>
void ForEach(Check check) {
  for (const BindingKind binding : kBindings) {
    for (const WorkerKind worker : kWorkers) {
      SCOPED_TRACE("binding " + std::to_string(static_cast<int>(binding)) + " worker " +
                   std::to_string(static_cast<int>(worker)));
      check(binding, worker, open_traits(binding, worker));
    }
  }
}

TEST(OpenTraits, AcceptedIdsAndFlags) {
  const struct {
    BindingKind binding;
    bool is29;
    std::int32_t mask, lowest, highest, flag;
  } kAccept[] = {
      {kCanusb, false, -1, 0, 2047, 0},
      {kCanusb, true, -1, INT32_MIN, 536870911, kAnyFlag},
      {kInterface, false, -1, 0, 2047, kAnyFlag},
      {kInterface, true, 536870911, 0, 536870911, kAnyFlag},
      {kKvaser, false, -1, 0, 2047, 2},
      {kKvaser, true, -1, 0, 536870911, kAnyFlag},
  };
  int checked = 0;
  ForEach([&](BindingKind binding, WorkerKind worker, const OpenTraits& traits) {
    for (const auto& row : kAccept) {
      if (row.binding != binding || row.is29 != Is29(worker)) continue;
      ++checked;
      EXPECT_EQ(traits.id_mask, row.mask);
      EXPECT_EQ(traits.lowest_id, row.lowest);
      EXPECT_EQ(traits.highest_id, row.highest);
      EXPECT_EQ(traits.flag, row.flag);
    }
  });
  EXPECT_EQ(checked, 12);
}

TEST(OpenTraits, FormatFilterOnlyInInterfaceExclusionWorkers) {
  ForEach([](BindingKind binding, WorkerKind worker, const OpenTraits& traits) {
    FormatFilter expected = FormatFilter::kNone;
    if (binding == kInterface && worker == WorkerKind::FormBG2) expected = FormatFilter::kStandard;
    if (binding == kInterface && worker == WorkerKind::FormBG2_29) {
      expected = FormatFilter::kExtended;
    }
    EXPECT_EQ(traits.format_filter, expected);
  });
}

TEST(OpenTraits, ExclusionInTheWorkersWhoseNameSaysTwo) {
  ForEach([](BindingKind, WorkerKind worker, const OpenTraits& traits) {
    EXPECT_EQ(traits.exclusion, Excludes(worker));
  });
}

TEST(OpenTraits, TimerKindAndWrapByBinding) {
  ForEach([](BindingKind binding, WorkerKind, const OpenTraits& traits) {
    const std::int32_t kKinds[] = {1, 2, 3};
    const double kWraps[] = {60000.0, 429491.0, 0.0};
    EXPECT_EQ(traits.Device_Timer_Kind, kKinds[static_cast<int>(binding)]);
    EXPECT_EQ(traits.device_time_wrap, kWraps[static_cast<int>(binding)]);
  });
}

TEST(OpenTraits, InterfaceClearsItsTablesBeforeTheSubfolder) {
  ForEach([](BindingKind binding, WorkerKind, const OpenTraits& traits) {
    EXPECT_EQ(traits.start_order,
              binding == kInterface ? StartOrder::kTablesFirst : StartOrder::kSubfolderFirst);
  });
}

TEST(OpenTraits, InterfaceLogsTheVersionTextAlone) {
  ForEach([](BindingKind binding, WorkerKind, const OpenTraits& traits) {
    EXPECT_EQ(traits.hardware_text,
              binding == kInterface ? HardwareText::kVersion : HardwareText::kDeviceAndVersion);
  });
}

TEST(OpenTraits, InterfaceIsConfiguredAfterTheTimerKvaserBeforeIt) {
  ForEach([](BindingKind binding, WorkerKind, const OpenTraits& traits) {
    if (binding == kInterface) {
      EXPECT_EQ(traits.configuring, Configuring::kAfterTimer);
    }
    if (binding == kKvaser) {
      EXPECT_EQ(traits.configuring, Configuring::kBeforeTimer);
    }
  });
}

TEST(OpenTraits, FailedOpenSaysWhatEnds) {
  const StringView kApp = u"アプリケーションを終了します。";
  const StringView kRun = u"接続を終了します。";
  const StringView kTexts[3][4] = {
      {kApp, kApp, kApp, kApp},
      {kRun, kRun, kRun, kRun},
      {kRun, kApp, kRun, kApp},
  };
  ForEach([&](BindingKind binding, WorkerKind worker, const OpenTraits& traits) {
    EXPECT_EQ(traits.failed_open_text, kTexts[static_cast<int>(binding)][static_cast<int>(worker)]);
  });
}

TEST(OpenTraits, OnlyInterfaceClosesAfterAFailedOpen) {
  ForEach([](BindingKind binding, WorkerKind, const OpenTraits& traits) {
    EXPECT_EQ(traits.close_after_failed_open, binding == kInterface);
  });
}

TEST(OpenTraits, EndOrder) {
  constexpr auto kSCF = EndOrder::kStatusCloseFlush;
  constexpr auto kCSF = EndOrder::kCloseStatusFlush;
  constexpr auto kSFC = EndOrder::kStatusFlushClose;
  const EndOrder kOrders[3][4] = {
      {kSCF, kSCF, kSCF, kSCF},
      {kSFC, kSFC, kSFC, kSFC},
      {kCSF, kSCF, kCSF, kCSF},
  };
  ForEach([&](BindingKind binding, WorkerKind worker, const OpenTraits& traits) {
    EXPECT_EQ(traits.end_order, kOrders[static_cast<int>(binding)][static_cast<int>(worker)]);
  });
}

}  // namespace
}  // namespace tolvane
