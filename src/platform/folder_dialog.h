#pragma once

#include <optional>

#include "platform/string.h"

namespace tolvane::platform {

/// The system's dialog for choosing a folder.
class FolderDialog {
 public:
  virtual ~FolderDialog() = default;
  /// The chosen folder, without a trailing backslash unless it is the root of a drive; empty when
  /// the user cancelled. Begins in `start` when that is a folder, else where the system likes.
  /// Modal over the settings dialog that asks; pumps messages meanwhile.
  [[nodiscard]] virtual std::optional<String> ShowFolder(StringView start) = 0;
};

}  // namespace tolvane::platform
