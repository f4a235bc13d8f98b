#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/file_services.h"
#include "platform/windows/system/handle.h"

namespace tolvane::platform::windows {

/// Opens or makes the file at `path`; `disposition` as CreateFile takes it. Others may read it
/// meanwhile.
[[nodiscard]] FileHandle OpenToWrite(const String& path, DWORD disposition);

/// False when not all bytes could be written.
[[nodiscard]] bool WriteAll(const FileHandle& file, std::span<const std::byte> bytes);

/// Whether a question for a file that failed with `error` says that there is none, as
/// FileServices::FileExists tells: no such file, no name that a file can have, or no way to the
/// place where it would be.
[[nodiscard]] bool MeansNoFile(DWORD error);

/// As FileServices::ReadBinary.
[[nodiscard]] std::optional<BinaryRead> ReadBytes(const String& path, std::size_t size);

}  // namespace tolvane::platform::windows
