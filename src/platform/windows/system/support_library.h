#pragma once

#include "platform/support_library.h"
#include "platform/windows/abi/qxt100_abi.h"
#include "platform/windows/system/library_loader.h"

namespace tolvane::platform::windows {

class WindowsSupportLibrary final : public SupportLibrary {
 public:
  explicit WindowsSupportLibrary(String path) : path_(std::move(path)) {}

  [[nodiscard]] bool Load() override { return library_.Load(path_); }
  [[nodiscard]] double qx_timeGetTime() override { return library_->qx_timeGetTime(); }
  [[nodiscard]] std::int32_t ColorAttenuation(std::int32_t colour, std::int32_t remaining,
                                              std::int32_t total) override {
    return library_->ColorAttenuation(colour, remaining, total);
  }

 private:
  String path_;
  LoadedLibrary<abi::Qxt100> library_;
};

}  // namespace tolvane::platform::windows
