#pragma once

#include "platform/string.h"

namespace tolvane::platform::memory {

/// `path` as Windows takes it before it looks at a disk: one backslash between names, "." and ".."
/// carried out, one period taken from the end of a name within the path, and every blank and period
/// from the end of the last one. So "C:\a " is the folder "C:\a", and "C:\a \b" lies in another.
[[nodiscard]] String AsWindowsTakesIt(StringView path);

/// The folder of a path that Windows has taken, with the backslash behind it, which keeps a blank
/// at the end of its name.
[[nodiscard]] StringView FolderOf(StringView taken);

/// Whether the last name of a path that Windows has taken can be given to a file or folder: no
/// character that names cannot hold, no name of a device such as NUL, with any extension or none.
[[nodiscard]] bool CanBeNamed(StringView taken);

}  // namespace tolvane::platform::memory
