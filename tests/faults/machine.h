#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/memory_platform.h"
#include "run/control/form1.h"
#include "simulator/canlib_bench.h"
#include "simulator/canusb_bench.h"
#include "simulator/ifcan_bench.h"
#include "tests/faults/fault_plan.h"
#include "tests/faults/faulty_adapters.h"
#include "tests/faults/faulty_files.h"
#include "tests/faults/faulty_system.h"
#include "tests/faults/office.h"
#include "tests/faults/written_logs.h"

namespace tolvane::faults {

/// The files below a machine's root, by their paths.
using Disk = std::vector<std::pair<String, std::string>>;
using Complaints = std::vector<std::string>;

constexpr FrameNumber kIds = 3;  // identifiers on the bus, used in turn

/// What is connected to a machine, and what the settings ask of a run.
struct Setup {
  const char* adapters;  // sections of the bench file
  std::int32_t ids;      // t_msgID_type, and the format of the frames
  std::int32_t excludes = 0;
  std::int32_t subfolder = 0;
  bool has_foreign_settings = false;  // config.dat is of another program at the start
  std::int32_t logs_of_the_hour = 0;  // that lie on the disk at the start
};

/// What happens in a yield of the receive loop that has read all there was.
struct Act {
  std::int64_t frames = 0;  // of the bus from now on
  bool numbered = true;     // whether what they set off can fail
  bool tick = false;
  bool session_ends = false;
};

/// One process of the program on a machine in memory with simulated adapters, in which what `plan`
/// says fails. Its bus has a frame whenever an act says so.
class Machine final : private ReadTap {
 public:
  Machine(const Setup& setup, const Disk& disk, FaultPlan& plan, std::stringbuf& report);

  void Start() { form.Form_Load(); }
  /// Chooses these settings, as the dialogs do, for logs in this form.
  void Set(WrittenLogs::Form log);
  /// A run of these acts, which the user then ends.
  void Run(std::span<const Act> acts);
  void Click(void (Form1::*handler)());
  void EndSession();

  /// The program waits for its next command.
  [[nodiscard]] bool Waits() const;
  /// The window was closed.
  [[nodiscard]] bool IsLeft() const { return left_; }
  [[nodiscard]] bool SessionHasEnded() const { return session_ended_; }
  [[nodiscard]] Disk Files() const;

  /// What is wrong after a run: with the window, and with page and log of what was accepted.
  /// `may_hold_back`: one of its files failed, and what that one held back had no other.
  [[nodiscard]] Complaints JudgeRun(bool may_hold_back) const;
  /// The same of a run in which nothing failed: also whether it went through all of `acts` and took
  /// all frames that they brought.
  [[nodiscard]] Complaints JudgeWholeRun(std::span<const Act> acts) const;

  platform::memory::MemoryPlatform memory;

 private:
  class BusClock;
  using BenchPointer = std::unique_ptr<simulator::Bench>;
  [[nodiscard]] BenchPointer NewBench(const char* library);
  [[nodiscard]] platform::Platform Platform();
  void Yield();
  void Perform(const Act& act);
  void Delivered(std::span<const std::uint8_t, 8> data) override;
  void FoundEmpty() override { found_empty_ = true; }
  [[nodiscard]] bool PageShows(FrameNumber frame) const;

  const Setup& setup_;
  FaultPlan& plan_;
  std::stringbuf& report_;
  std::int64_t now_us_ = 0;
  WrittenLogs logs_{memory.files};
  Office office_{memory.files, plan_, logs_};
  FaultyFiles files_{memory.files, plan_, logs_};
  FaultyClipboard clipboard_{memory.clipboard, plan_};
  FaultyTimer FormBG_{memory.FormBG, plan_};
  FaultyTimer FormBG2_{memory.FormBG2, plan_};
  FaultyTimer FormBG_29_{memory.FormBG_29, plan_};
  FaultyTimer FormBG2_29_{memory.FormBG2_29, plan_};
  FaultyLibrary qxt100_{memory.qxt100, plan_};
  FaultyResolution winmm_{memory.winmm, plan_};
  FaultyMessageBox message_box_{memory.message_box, plan_};
  FaultyFolders folders_{memory.folders, plan_};
  FaultyWallClock wall_clock_{memory.wall_clock, plan_, logs_};
  FaultyCursors cursors_{memory.cursors, plan_};
  FaultyProtection run_protection_{memory.run_protection, plan_};
  simulator::CanusbBench canusb_bench_;
  simulator::IfcanBench ifcan_bench_;
  simulator::CanlibBench canlib_bench_;
  FaultyCanusb canusbdrv_{canusb_bench_, plan_, *this};
  FaultyIfcan IFCan_{ifcan_bench_, plan_, *this};
  FaultyCanlib canlib32_{canlib_bench_, plan_, *this};
  WrittenLogs::Form log_ = WrittenLogs::Form::kNone;
  std::array<FrameNumber, kIds> last_{};  // of each identifier, in this run
  std::span<const Act> acts_;
  bool found_empty_ = false;
  bool session_ended_ = false;
  bool left_ = false;

 public:
  Form1 form;  // made last, on all of this
};

}  // namespace tolvane::faults
