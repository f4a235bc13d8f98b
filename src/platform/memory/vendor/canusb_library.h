#pragma once

#include <string>
#include <vector>

#include "platform/canusb_library.h"
#include "platform/memory/system/journal.h"
#include "platform/memory/vendor/frame_script.h"
#include "receive/adapters/canusb.h"

namespace tolvane::platform::memory {

/// canusbdrv.dll with scripted adapters and frames. Every call is noted, the reads only on demand.
class CanusbLibrary final : public platform::CanusbLibrary {
 public:
  explicit CanusbLibrary(Journal& journal) : journal_(journal) {}

  std::int16_t canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) override;
  std::int16_t canusb_getNextAdapter(std::array<char, kSerialSize>& serial) override;
  std::int32_t canusb_Open(const std::string& serial, std::string& rate,
                           std::int32_t acceptance_code, std::int32_t acceptance_mask,
                           std::int32_t flags) override;
  void canusb_Close(std::int32_t handle) override;
  std::int32_t canusb_Read(std::int32_t handle, CanusbMessage& message) override;
  std::int32_t canusb_VersionInfo(std::int32_t handle,
                                  std::array<char, kVersionSize>& version) override;

  // The script.
  std::vector<std::string> serials;  // of the adapters found
  std::int16_t search_result = 1;    // while an adapter is given
  std::int32_t open_result = 1;      // the handle
  std::int32_t version_result = 1;
  std::string version = "V1011";
  std::int32_t read_result = 1;  // of a read that delivers a frame
  std::int32_t empty_read_result = CANUSB{}.ERROR_CANUSB_NO_MESSAGE;
  FrameScript<CanusbMessage> frames;
  bool note_reads = false;
  bool only_bytes_of_length = false;  // a read leaves the other data bytes as they are
  bool writes_on_refusal = false;     // queries that fail write their answer all the same

 private:
  /// Whether a query with this result writes into the caller's memory.
  [[nodiscard]] bool Writes(std::int32_t result) const { return result > 0 || writes_on_refusal; }
  std::int16_t GiveAdapter(std::array<char, kSerialSize>& serial);

  Journal& journal_;
  std::size_t next_adapter_ = 0;
};

}  // namespace tolvane::platform::memory
