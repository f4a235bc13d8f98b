#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ifcan_library.h"
#include "platform/memory/system/journal.h"
#include "platform/memory/vendor/frame_script.h"
#include "receive/adapters/interfacecan.h"

namespace tolvane::platform::memory {

/// IFCan.dll with scripted ports and frames. The handle of port n is 100 + n, unless the script
/// says otherwise. Every call is noted, the reads only on demand.
class IfcanLibrary final : public platform::IfcanLibrary {
 public:
  struct Port {
    std::int32_t number;  // of its name, "IFCAN" and the number
    IfcanPortInformation information = {};
    std::int32_t information_status = 0;
    std::optional<std::int32_t> handle = {};
  };
  static constexpr std::int32_t kHandleBase = 100;

  explicit IfcanLibrary(Journal& journal) : journal_(journal) {}

  std::int32_t CanOpenPort(const std::string& name) override;
  std::int32_t CanClosePort(std::int32_t handle) override;
  std::int32_t CanGetConfig(std::int32_t handle, IfcanConfig& config) override;
  std::int32_t CanSetConfig(std::int32_t handle, const IfcanConfig& config) override;
  std::int32_t CanActivate(std::int32_t handle) override;
  std::int32_t CanDeactivate(std::int32_t handle) override;
  std::int32_t CanReceiveMessage(std::int32_t handle, IfcanMessage& message,
                                 std::int32_t& count) override;
  std::int32_t CanGetPortInformation(std::int32_t handle,
                                     IfcanPortInformation& information) override;

  // The script. A handle that belongs to no port is refused with IFCAN_ERROR_INVALID_HANDLE.
  std::vector<Port> ports;
  IfcanConfig config = {.mode = 7, .passed_through = {11, 12, 13, 14, 15}, .baud_rate = 99};
  std::int32_t get_config_status = 0;
  std::int32_t set_config_status = 0;
  std::int32_t activate_status = 0;
  std::int32_t deactivate_status = 0;
  std::int32_t close_status = 0;
  std::int32_t empty_read_status = InterfaceCAN{}.IFCAN_ERROR_BUFFER_IS_EMPTY;
  FrameScript<IfcanMessage> frames;
  bool note_reads = false;
  bool only_bytes_of_length = false;  // a read leaves the other data bytes as they are
  bool writes_on_refusal = false;     // queries that fail write their answer all the same

 private:
  /// Whether a query with this status writes into the caller's memory.
  [[nodiscard]] bool Writes(std::int32_t status) const { return status == 0 || writes_on_refusal; }
  [[nodiscard]] static std::int32_t HandleOf(const Port& port);
  /// `status` for a handle of a port, else the refusal.
  [[nodiscard]] std::int32_t StatusFor(std::int32_t handle, std::int32_t status) const;
  [[nodiscard]] const Port* PortOf(std::int32_t handle) const;

  Journal& journal_;
};

}  // namespace tolvane::platform::memory
