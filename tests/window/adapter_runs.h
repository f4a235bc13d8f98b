#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "tests/window/dialog_fixture.h"

namespace tolvane::window {

enum Kind { kCanusb, kInterface, kKvaser };
inline constexpr std::array kKinds{kCanusb, kInterface, kKvaser};
inline constexpr std::array kKindNames{"CANUSB", "Interface", "Kvaser"};
/// Lines of the device list.
constexpr int Good(Kind kind) { return 2 * kind; }
constexpr int Failing(Kind kind) { return 2 * kind + 1; }

/// What a run is set to in the common settings.
struct Settings {
  int bit_rate = 2;
  bool ids_of_29_bits = false;
  bool extended_only = false;
  bool silent = false;
};

/// What a bit rate is on the screen and for each library; empty or 0 where it is refused.
struct RateRow {
  const wchar_t* shown;
  int bit_rate;
  const char* canusb;
  int interface_code;
  int kvaser;
};
inline constexpr std::array<RateRow, 9> kRates{{{L"1M bps", 1'000'000, "1000", 39, -1},
                                                {L"800k bps", 800'000, "800", 0, 0},
                                                {L"500k bps", 500'000, "500", 295, -2},
                                                {L"250k bps", 250'000, "250", 570, -3},
                                                {L"100k bps", 100'000, "100", 2358, -5},
                                                {L"50k bps", 50'000, "50", 7459, -7},
                                                {L"20k bps", 20'000, "20", 0, 0},
                                                {L"10k bps", 10'000, "10", 0, -9},
                                                {L"125k bps", 125'000, "125", 1338, -4}}};

/// What the libraries' report calls the adapter of each kind that works.
inline constexpr std::array kAdapterNames{"TV100001", "IFCAN1", "channel0"};

/// Calls of an adapter's library as its report has them, with their results.
using Calls = std::vector<std::string>;

/// The calls of one run at these settings on the adapter of the kind that works. `made` are those
/// of the run itself, whose open call gives the handle.
[[nodiscard]] Calls ExpectedCalls(Kind kind, const Settings& settings, const Calls& made);

/// The real program with adapters of all kinds: of each kind one that works and one that fails in a
/// run, though not in the search.
class AdapterRuns : public OpenedWindows {
 protected:
  /// The bus plays `recording`, a candump log.
  void StartOn(std::string_view recording);
  void Set(const Settings& settings);

  /// Selects a line; what the libraries are asked from now on counts.
  void Select(int line);
  /// The calls since the selection.
  [[nodiscard]] Calls CallsSinceSelection() const;

  /// Connects where that ends with a message box, and gives the box's text. The picture of the box
  /// is kept under this name, if there is one.
  std::wstring ConnectToMessage(std::string_view picture);

 private:
  std::size_t reported_ = 0;
};

}  // namespace tolvane::window
