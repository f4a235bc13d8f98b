#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/memory/memory_platform.h"
#include "run/control/form1.h"
#include "tests/fuzz/bus_frame.h"
#include "tests/fuzz/judged_files.h"
#include "tests/fuzz/judged_servers.h"

namespace tolvane::fuzz {

/// The program on a machine in memory with one adapter of each kind, and the judge of its runs.
/// Users, timers and the system get at it as they do in a window: what is disabled cannot be
/// clicked, what comes while a handler runs waits at the gate, and nothing is clicked behind a box.
class HostileMachine {
 public:
  /// `config` lies on the disk as config.dat, `view_list`, if any, as lglist.dat; `version` is that
  /// of the spreadsheet programs.
  HostileMachine(const std::string& config, const std::optional<std::string>& view_list,
                 std::optional<std::int32_t> version);

  /// The page of lglist.dat is shown, or none when it cannot be read.
  void Start();

  /// The user's click, which is judged when it is one on Bt_Connect or Bt_SaveFile.
  void Click(void (Form1::*handler)());
  /// Whatever else the user does in the window.
  void Act(std::function<void()> action);
  /// The period of every timer is over.
  void Tick();
  void EndSession();
  /// The program is about to end; no more happens to it.
  [[nodiscard]] bool IsLeft();

  /// What happens in yields, in the loops of boxes and in calls of a spreadsheet program.
  void OnYield(std::function<void()> handler) { memory.events.OnYield(std::move(handler)); }
  void WhileWaiting(std::function<void()> handler);

  /// What the view shows must fit together, and must come back out of its rich text.
  void JudgePage() const;

  platform::memory::MemoryPlatform memory;
  JudgedFiles files{memory.files};
  JudgedServers servers;
  std::deque<BusFrame> bus;  // frames that wait in the adapter
  Form1 form;

 private:
  [[nodiscard]] platform::Platform Platform();
  void Connect();
  void Snapshot();
  void JudgeRun() const;
  void JudgeLog() const;
  void JudgeCsv() const;
  void JudgeTimes() const;
  void JudgeRows() const;
  /// The next frame goes into the library that is asked for one.
  template <typename Library, typename Record>
  void Feed(Library& library, Record (BusFrame::*as)() const);

  std::optional<std::string> view_list_;
  std::vector<LoggedFrame> taken_;               // the frames that this run had to take
  std::vector<std::int32_t> stamps_;             // of each of them
  std::map<std::uint32_t, LoggedFrame> newest_;  // of each identifier
  bool in_box_ = false;
  bool in_call_ = false;
  bool session_ended_ = false;
  int snapshots_ = 0;  // so far
};

}  // namespace tolvane::fuzz
