#pragma once

#include <filesystem>
#include <string_view>

namespace tolvane::window {

/// What can be wrong with a library that is in the right place.
enum class Damage { kNone, kNoLibrary, kOtherMachine, kLacksExport };

/// Leaves a copy of the library `source` at `target` with that damage done. `lost_export` is the
/// export that kLacksExport takes away; the library must have it. False when this cannot be done.
[[nodiscard]] bool CopyDamaged(const std::filesystem::path& source,
                               const std::filesystem::path& target, Damage damage,
                               std::string_view lost_export);

}  // namespace tolvane::window
