#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/string.h"

namespace tolvane {

/// The three kinds of adapter. How a run goes with each stands in receive/open_traits.h, which bit
/// rates it has in receive/adapters/bit_rate.h.
enum class AdapterKind : std::uint8_t { kCanusb, kInterface, kKvaser };

/// What is known of a kind before any adapter is seen.
struct AdapterTraits {
  std::int32_t vender;       // its number in t_select_Vender and Device_Timer_Kind
  std::int32_t library_bit;  // in the result of DLL_Presence_Check
  StringView library;        // file in the system folder
  StringView name;           // begins the adapters' lines; empty where a channel names itself
  std::int32_t timer_wrap;   // ms after which the adapter's timer starts over; 0 for never
  // Two frames may have one stamp. For a cycle of 0 the page then keeps the last cycle, where it
  // says "????" of the other kinds. It mends no wrap of such stamps: a negative cycle counts as 0.
  bool repeats_stamps;
};

/// By AdapterKind.
inline constexpr std::array<AdapterTraits, 3> adapter_traits = {{
    {.vender = 1,
     .library_bit = 1,
     .library = u"canusbdrv.dll",
     .name = u"CANUSB ",
     .timer_wrap = 60'000,
     .repeats_stamps = false},
    {.vender = 2,
     .library_bit = 2,
     .library = u"IFCan.dll",
     .name = u"Interface ",
     .timer_wrap = 429'491,
     .repeats_stamps = true},
    {.vender = 3,
     .library_bit = 4,
     .library = u"canlib32.dll",
     .name = u"",
     .timer_wrap = 0,
     .repeats_stamps = false},
}};

[[nodiscard]] constexpr const AdapterTraits& AdapterTraitsOf(AdapterKind kind) {
  return adapter_traits[static_cast<std::size_t>(kind)];
}

// t_select_Vender and Device_Timer_Kind.
constexpr std::int32_t kVenderNone = 0;
constexpr std::int32_t kVenderCanusb = AdapterTraitsOf(AdapterKind::kCanusb).vender;
constexpr std::int32_t kVenderInterface = AdapterTraitsOf(AdapterKind::kInterface).vender;
constexpr std::int32_t kVenderKvaser = AdapterTraitsOf(AdapterKind::kKvaser).vender;

/// Null for a number that no kind has.
[[nodiscard]] constexpr const AdapterTraits* AdapterOfVender(std::int32_t vender) {
  for (const AdapterTraits& adapter : adapter_traits) {
    if (adapter.vender == vender) return &adapter;
  }
  return nullptr;
}

/// The timer_wrap of Device_Timer_Kind, 0 for no kind.
[[nodiscard]] constexpr std::int32_t TimerWrap(std::int32_t Device_Timer_Kind) {
  const AdapterTraits* adapter = AdapterOfVender(Device_Timer_Kind);
  return adapter == nullptr ? 0 : adapter->timer_wrap;
}

}  // namespace tolvane
