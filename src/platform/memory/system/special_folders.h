#pragma once

#include <utility>

#include "platform/file_services.h"

namespace tolvane::platform::memory {

class SpecialFolders final : public platform::SpecialFolders {
 public:
  SpecialFolders(String desktop, String system)
      : desktop_(std::move(desktop)), system_(std::move(system)) {}

  [[nodiscard]] String Desktop() override { return desktop_; }
  [[nodiscard]] String System() override { return system_; }

 private:
  String desktop_;
  String system_;
};

}  // namespace tolvane::platform::memory
