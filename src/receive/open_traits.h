#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/string.h"
#include "receive/adapters/interfacecan.h"
#include "receive/adapters/kvasercan.h"
#include "run/elm327_info.h"
#include "run/worker_kind.h"

namespace tolvane {

enum class BindingKind : std::uint8_t { kCanusb, kInterface, kKvaser };

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

constexpr std::int32_t kAnyFlag = -1;
constexpr std::int32_t kWholeWord = -1;
constexpr std::int32_t kNoLowestId = INT32_MIN;

/// What differs between the twelve ways of a run.
struct OpenTraits {
  // The accept test: the ID, masked, lies between the two bounds, and the frame's flag is the given
  // one. IDs compare as signed numbers.
  std::int32_t id_mask;
  std::int32_t lowest_id;
  std::int32_t highest_id;
  std::int32_t flag;
  FormatFilter format_filter;
  bool exclusion;  // drops frames in an exclusion range
  std::int32_t Device_Timer_Kind;
  double device_time_wrap;  // ms
  StartOrder start_order;
  HardwareText hardware_text;
  Configuring configuring;
  StringView failed_open_text;
  bool close_after_failed_open;
  EndOrder end_order;
};

namespace open_traits_cells {

constexpr StringView kEndsApp = u"アプリケーションを終了します。";
constexpr StringView kEndsRun = u"接続を終了します。";
constexpr std::int32_t kId11 = 2047;
constexpr std::int32_t kId29 = 536870911;
constexpr std::int32_t kStd = KvaserCAN{}.canMSG_STD;
constexpr std::int32_t kAny = kAnyFlag;
constexpr std::int32_t kWord = kWholeWord;
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

// One line per worker, in the order of WorkerKind; wide on purpose, to be read down the columns.
// The four lines of the Kvaser adapter end differently from each other, and so they must.
// clang-format off
constexpr OpenTraits kTable[3][4] = {
    //  mask   lowest highest flag  filter     excl.  kind            wrap      start    hardware  config.  failed    close  end
    {  // CANUSB
        {kWord,    0, kId11,    0, kNone,     false, kVenderCanusb,    60000.0, kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
        {kWord,    0, kId11,    0, kNone,     true,  kVenderCanusb,    60000.0, kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
        {kWord, kLow, kId29, kAny, kNone,     false, kVenderCanusb,    60000.0, kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
        {kWord, kLow, kId29, kAny, kNone,     true,  kVenderCanusb,    60000.0, kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
    },
    {  // Interface
        {kWord,    0, kId11, kAny, kNone,     false, kVenderInterface, 429491.0, kTables, kVersion, kAfter, kEndsRun, true,  kSFC},
        {kWord,    0, kId11, kAny, kStandard, true,  kVenderInterface, 429491.0, kTables, kVersion, kAfter, kEndsRun, true,  kSFC},
        {kId29,    0, kId29, kAny, kNone,     false, kVenderInterface, 429491.0, kTables, kVersion, kAfter, kEndsRun, true,  kSFC},
        {kId29,    0, kId29, kAny, kExtended, true,  kVenderInterface, 429491.0, kTables, kVersion, kAfter, kEndsRun, true,  kSFC},
    },
    {  // Kvaser
        {kWord,    0, kId11, kStd, kNone,     false, kVenderKvaser,         0.0, kFolder, kBoth,    kBefore, kEndsRun, false, kCSF},
        {kWord,    0, kId11, kStd, kNone,     true,  kVenderKvaser,         0.0, kFolder, kBoth,    kBefore, kEndsApp, false, kSCF},
        {kWord,    0, kId29, kAny, kNone,     false, kVenderKvaser,         0.0, kFolder, kBoth,    kBefore, kEndsRun, false, kCSF},
        {kWord,    0, kId29, kAny, kNone,     true,  kVenderKvaser,         0.0, kFolder, kBoth,    kBefore, kEndsApp, false, kCSF},
    },
};
// clang-format on

}  // namespace open_traits_cells

/// By binding, then worker.
[[nodiscard]] constexpr const OpenTraits& open_traits(BindingKind binding, WorkerKind worker) {
  return open_traits_cells::kTable[static_cast<std::size_t>(binding)]
                                  [static_cast<std::size_t>(worker)];
}

}  // namespace tolvane
