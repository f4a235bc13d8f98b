#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/helpers/bench_faults.h"
#include "tests/window/probe.h"
#include "tests/window/simulated_bench.h"
#include "tools/drive/driven_program.h"
#include "tools/drive/message_box.h"

namespace tolvane::window {

/// The state of every control of the main window that a run changes.
struct WindowState {
  bool connect_enabled;
  bool disconnect_enabled;
  bool list_enabled;
  bool settings_menus_enabled;  // all three of them
  bool comment_locked;
  bool view_locked;
  bool caution_visible;
  bool always_enabled;  // snapshot and clear buttons, close and version menus
  std::wstring protocol;
  std::wstring status;

  friend bool operator==(const WindowState&, const WindowState&) = default;
};
std::ostream& operator<<(std::ostream& stream, const WindowState& state);

/// What the window shows when no run is on, and while one with default settings is on.
[[nodiscard]] WindowState IdleState();
[[nodiscard]] WindowState ConnectedState();

/// A test with the real program in a folder of its own, on a simulated bench. A fault that the
/// bench's libraries report fails it, unless it is expected.
class RealProgram : public testing::Test {
 protected:
  RealProgram();

  /// In place of what was plugged in before, whose faults are judged now.
  void PlugIn(std::string_view ini, const std::vector<const wchar_t*>& libraries);
  /// Starts the program; its main window, or one that does not exist.
  DrivenWindow StartProgram();
  /// Starts the program where it is to end with a message box, and gives that box.
  std::optional<ShownMessage> StartToMessage();
  /// Presses the button of the connect and waits until a run is on.
  void Connect(const DrivenWindow& window);
  void Disconnect(const DrivenWindow& window);
  /// Expects the faults that the libraries have reported since the last check to be exactly
  /// `expected_faults_`, and empties it. Called at each disconnect and at the end of the test.
  void ExpectFaults();
  void TearDown() override { ExpectFaults(); }
  /// Waits until the adapter that the report calls so has given out all the traffic of this run;
  /// how many frames that was, -1 when more is to come.
  [[nodiscard]] std::int64_t AwaitWholeTraffic(std::string_view adapter) const;
  /// Waits until the page has at least `lines` lines.
  static bool WaitForLines(const DrivenWindow& window, std::size_t lines);

  [[nodiscard]] WindowState State(const DrivenWindow& window) const;
  /// Keeps a picture of the window in build/.../pictures under the test's name and `suffix`.
  static void KeepPicture(HWND window, std::string_view suffix);

  ProgramFolder folder_;
  std::optional<SimulatedBench> bench_;
  std::optional<DrivenProgram> program_;
  Faults expected_faults_;

 private:
  std::size_t faults_seen_ = 0;
  std::size_t connected_at_ = 0;  // of the report
};

}  // namespace tolvane::window
