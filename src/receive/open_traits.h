#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "platform/string.h"
#include "receive/adapters/id_limits.h"
#include "run/adapter_kind.h"
#include "run/stop_message.h"
#include "run/worker_kind.h"

namespace tolvane {

/// What t_MsgFmtTyp does to a frame: 0 lets every frame through, 1 what is named here, any other
/// value none. Only the exclusion workers on an Interface board look at it.
enum class FormatFilter : std::uint8_t { kNone, kStandard, kExtended };

/// Whether the run's subfolder is made before the tables are cleared, or after.
enum class StartOrder : std::uint8_t { kSubfolderFirst, kTablesFirst };

/// What hardware_information holds.
enum class HardwareText : std::uint8_t { kDeviceAndVersion, kVersion };

/// Whether the adapter is configured before the view's timer is enabled, or after. Going on the bus
/// always comes after.
enum class Configuring : std::uint8_t { kBeforeTimer, kAfterTimer };

/// The order of the last steps: the finishing status, the close of the adapter, and the flush with
/// the timer's end.
enum class EndOrder : std::uint8_t { kStatusCloseFlush, kCloseStatusFlush, kStatusFlushClose };

constexpr std::int32_t kNoLowestId = INT32_MIN;

/// What differs between the twelve ways of a run.
struct OpenTraits {
  // The accept test: the ID lies between the two bounds, as signed numbers, and the frame is a
  // plain standard one where only such are taken.
  std::int32_t lowest_id;
  std::int32_t highest_id;
  bool plain_standard;
  FormatFilter format_filter;
  bool exclusion;  // drops frames in an exclusion range
  StartOrder start_order;
  HardwareText hardware_text;
  Configuring configuring;
  StringView failed_open_text;
  bool close_after_failed_open;
  EndOrder end_order;
};

namespace open_traits_cells {

constexpr std::int32_t kId11 = kMaxStandardID;
constexpr std::int32_t kId29 = kMaxExtendedID;
constexpr std::int32_t kLow = kNoLowestId;
constexpr auto kNone = FormatFilter::kNone;
constexpr auto kStandard = FormatFilter::kStandard;
constexpr auto kExtended = FormatFilter::kExtended;
constexpr auto kFolder = StartOrder::kSubfolderFirst;
constexpr auto kTables = StartOrder::kTablesFirst;
constexpr auto kBoth = HardwareText::kDeviceAndVersion;
constexpr auto kVersion = HardwareText::kVersion;
constexpr auto kBefore = Configuring::kBeforeTimer;
constexpr auto kAfter = Configuring::kAfterTimer;
constexpr auto kSCF = EndOrder::kStatusCloseFlush;
constexpr auto kCSF = EndOrder::kCloseStatusFlush;
constexpr auto kSFC = EndOrder::kStatusFlushClose;

// One line per worker, in the order of WorkerKind, to be read down the columns.
// The Kvaser lines fail and end in three different ways. That stays: users know the messages, and a
// driver may depend on the order of its calls.
// clang-format off
constexpr OpenTraits kTable[3][4] = {
    //   low   high   plain  filter     excl.  start    hardware  config.  failed    close  end
    {  // CANUSB
        {   0, kId11, true,  kNone,     false, kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
        {   0, kId11, true,  kNone,     true,  kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
        {kLow, kId29, false, kNone,     false, kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
        {kLow, kId29, false, kNone,     true,  kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
    },
    {  // Interface
        {   0, kId11, true,  kNone,     false, kTables, kVersion, kAfter, kEndsRun, true,  kSFC},
        {   0, kId11, true,  kStandard, true,  kTables, kVersion, kAfter, kEndsRun, true,  kSFC},
        {   0, kId29, false, kNone,     false, kTables, kVersion, kAfter, kEndsRun, true,  kSFC},
        {   0, kId29, false, kExtended, true,  kTables, kVersion, kAfter, kEndsRun, true,  kSFC},
    },
    {  // Kvaser
        {   0, kId11, true,  kNone,     false, kFolder, kBoth,    kBefore, kEndsRun, false, kCSF},
        {   0, kId11, true,  kNone,     true,  kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
        {   0, kId29, false, kNone,     false, kFolder, kBoth,    kBefore, kEndsRun, false, kCSF},
        {   0, kId29, false, kNone,     true,  kFolder, kBoth,    kBefore, kEndsApp, false, kCSF},
    },
};
// clang-format on
static_assert(std::size(kTable) == adapter_traits.size());

}  // namespace open_traits_cells

/// By adapter, then worker.
[[nodiscard]] constexpr const OpenTraits& open_traits(AdapterKind adapter, WorkerKind worker) {
  return open_traits_cells::kTable[static_cast<std::size_t>(adapter)]
                                  [static_cast<std::size_t>(worker)];
}

}  // namespace tolvane
