#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/file_services.h"
#include "platform/memory/system/file_system.h"
#include "tests/faults/fault_plan.h"
#include "tests/faults/written_logs.h"

namespace tolvane::faults {

/// The files of a machine, each of whose operations can fail. What fails is not carried out, but
/// for a text of which half is written and a stream that is closed without being whole for sure.
class FaultyFiles final : public platform::FileServices {
 public:
  FaultyFiles(platform::memory::FileSystem& files, FaultPlan& plan, WrittenLogs& logs);

  bool FolderExists(StringView path) override;
  /// A file that cannot be asked for counts as one that is there.
  bool FileExists(StringView path) override;
  std::vector<String> FileNames(StringView stem) override;
  bool CreateFolder(StringView path) override;
  std::unique_ptr<platform::TextStream> CreateTextFile(StringView path, bool overwrite,
                                                       bool unicode) override;
  bool DeleteFile(StringView path, bool force) override;
  std::optional<platform::BinaryRead> ReadBinary(StringView path, std::size_t size) override;
  bool WriteBinary(StringView path, std::span<const std::byte> bytes) override;
  std::optional<std::int32_t> Attributes(StringView path) override;

 private:
  class Stream;
  [[nodiscard]] bool Fails(std::string_view call) { return plan_.Fails(Subject::kFiles, call); }

  platform::memory::FileSystem& files_;
  FaultPlan& plan_;
  WrittenLogs& logs_;
};

}  // namespace tolvane::faults
