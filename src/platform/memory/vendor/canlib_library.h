#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/canlib_library.h"
#include "platform/memory/system/journal.h"
#include "platform/memory/vendor/frame_script.h"
#include "receive/adapters/kvasercan.h"

namespace tolvane::platform::memory {

/// A frame as canRead delivers it.
struct CanlibFrame {
  std::int32_t id;
  std::array<std::uint8_t, 8> msg;
  std::int32_t dlc;
  std::int32_t flag;
  std::int32_t time;
};

/// canlib32.dll with scripted channels and frames. Every call is noted, the reads only on demand.
class CanlibLibrary final : public platform::CanlibLibrary {
 public:
  explicit CanlibLibrary(Journal& journal) : journal_(journal) {}

  void canInitializeLibrary() override;
  std::int32_t canGetNumberOfChannels(std::int32_t& count) override;
  std::int32_t canGetChannelData(std::int32_t channel, std::int32_t item,
                                 std::span<std::byte> buffer) override;
  std::int32_t canOpenChannel(std::int32_t channel, std::int32_t flags) override;
  std::int32_t canClose(std::int32_t handle) override;
  std::int32_t canSetBusParams(std::int32_t handle, std::int32_t rate, std::uint32_t tseg1,
                               std::uint32_t tseg2, std::uint32_t sjw, std::uint32_t no_samp,
                               std::uint32_t syncmode) override;
  std::int32_t canSetBusOutputControl(std::int32_t handle, std::uint32_t driver_type) override;
  std::int32_t canBusOn(std::int32_t handle) override;
  std::int32_t canBusOff(std::int32_t handle) override;
  std::int32_t canRead(std::int32_t handle, std::int32_t& id, std::array<std::uint8_t, 8>& msg,
                       std::int32_t& dlc, std::int32_t& flag, std::int32_t& time) override;

  // The script.
  std::vector<std::int32_t> channels;         // what opening channel i gives: a handle or a failure
  std::optional<std::int32_t> channel_count;  // what the library says when not their number
  std::map<std::pair<std::int32_t, std::int32_t>, std::vector<std::byte>> channel_data;
  std::int32_t data_result = 0;  // of a query that has its answer in channel_data
  std::int32_t call_result = 0;  // of the calls whose result is ignored
  std::map<std::string, std::int32_t> call_results;  // of some of them, by name
  std::int32_t read_result = 0;                      // of a read that delivers a frame
  std::int32_t empty_read_result = KvaserCAN{}.canERR_NOMSG;
  FrameScript<CanlibFrame> frames;
  bool note_reads = false;
  bool only_bytes_of_length = false;  // a read leaves the other data bytes as they are
  bool writes_on_refusal = false;     // queries that fail write their answer all the same

 private:
  /// Whether a query with this status writes into the caller's memory.
  [[nodiscard]] bool Writes(std::int32_t status) const { return status >= 0 || writes_on_refusal; }
  [[nodiscard]] std::int32_t ResultOf(const std::string& call) const;

  Journal& journal_;
};

}  // namespace tolvane::platform::memory
