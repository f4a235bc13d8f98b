#pragma once

#include "platform/file_steps.h"

namespace tolvane::platform::windows {

class WindowsFileSteps final : public FileSteps {
 public:
  [[nodiscard]] Opened Create(StringView path) override;
  [[nodiscard]] Opened Open(StringView path) override;
  [[nodiscard]] FileStep Move(StringView from, StringView to) override;
  [[nodiscard]] bool MovesWhole(StringView path) override;
  [[nodiscard]] FileStep Delete(StringView path) override;
  [[nodiscard]] bool Exists(StringView path) override;
  [[nodiscard]] bool IsReadOnly(StringView path) override;
  [[nodiscard]] std::optional<BinaryRead> Read(StringView path, std::size_t size) override;
  void Pause(std::int32_t ms) override;
};

}  // namespace tolvane::platform::windows
