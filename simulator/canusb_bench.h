#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/canusb_library.h"
#include "simulator/bench.h"

namespace tolvane::simulator {

/// canusbdrv.dll on the bench. An adapter is on the bus while it is open; it can be opened only
/// once at a time, by its serial text. Opening with a rate that is not that of the bus becomes a
/// fault only with the first read, since any rate will do for asking the version. Memory that a
/// driver does not write keeps the program's values: the buffers of a failed call, and the bytes
/// after a text's NUL.
class CanusbBench : public platform::CanusbLibrary {
 public:
  explicit CanusbBench(std::unique_ptr<Bench> bench);
  ~CanusbBench() override;

  std::int16_t canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) override;
  std::int16_t canusb_getNextAdapter(std::array<char, kSerialSize>& serial) override;
  /// " kbit/s" is appended to `rate`.
  std::int32_t canusb_Open(const std::string& serial, std::string& rate,
                           std::int32_t acceptance_code, std::int32_t acceptance_mask,
                           std::int32_t flags) override;
  /// 1, or a negative error code.
  std::int32_t Close(std::int32_t handle);
  void canusb_Close(std::int32_t handle) override { Close(handle); }
  std::int32_t canusb_Read(std::int32_t handle, platform::CanusbMessage& message) override;
  std::int32_t canusb_VersionInfo(std::int32_t handle,
                                  std::array<char, kVersionSize>& version) override;

  /// Goes into bits 16 to 31 of the register that carries a search's result, 0 to 0xFFFF.
  std::int32_t SearchUpperHalf() const { return bench_->Config().search_upper_half; }

 private:
  struct Adapter {
    const CanusbPlan* plan;
    CallScript script;
    std::int32_t handle = 0;
    bool stamps = false;
    std::int32_t bit_rate = 0;
    std::unique_ptr<BusTap> tap;  // null while closed
  };

  Adapter* FindOpen(std::int32_t handle);
  std::int16_t Search(std::string_view call, std::array<char, kSerialSize>& serial);
  std::int32_t Open(const std::string& serial, const std::string& rate,
                    const AcceptanceFilter& filter, std::int32_t flags);
  std::int32_t RefuseHandle(std::string_view call, std::int32_t handle);
  void TellRun(const Adapter& adapter, const TapCounts& counts);

  std::unique_ptr<Bench> bench_;
  CallScript script_;
  std::vector<Adapter> adapters_;
  std::optional<std::size_t> next_found_;  // none before the search's first call
  std::int32_t last_handle_ = 0;
};

}  // namespace tolvane::simulator
