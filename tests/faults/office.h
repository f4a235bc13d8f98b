#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/automation.h"
#include "platform/memory/system/file_system.h"
#include "tests/faults/fault_plan.h"
#include "tests/faults/written_logs.h"

namespace tolvane::faults {

/// Spreadsheet programs of version 16 under every name. Each of their operations can fail, and is
/// not carried out then; a save puts a file on the disk and tells the logs which frames are in it.
class Office final : public platform::AutomationServers {
 public:
  Office(platform::memory::FileSystem& files, FaultPlan& plan, WrittenLogs& logs)
      : files_(files), plan_(plan), logs_(logs) {}

  std::unique_ptr<platform::AutomationObject> CreateObject(StringView name) override;

  /// Objects that the program has not let go of.
  [[nodiscard]] int LiveObjects() const { return live_objects_; }

 private:
  class Object;
  [[nodiscard]] bool Fails(std::string_view call) {
    return plan_.Fails(Subject::kAutomation, call);
  }
  void Fill(const platform::AutomationTable& table);
  void Save(StringView path);

  platform::memory::FileSystem& files_;
  FaultPlan& plan_;
  WrittenLogs& logs_;
  std::vector<FrameNumber> sheet_;
  int live_objects_ = 0;
};

}  // namespace tolvane::faults
