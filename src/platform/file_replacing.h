#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/file_steps.h"
#include "platform/string.h"

namespace tolvane::platform {

// How a file gets new content, so that power may go at any moment and leave the old or the new.
//
// A fresh file is written beside it, reaches the disk and takes its name: config.da~ becomes
// config.dat. A program that holds one of them, as scanners, indexers and synchronisers do with
// what has just changed, is waited for, about a second in all. If the old file is held longer, or a
// power cut could leave neither name, it is written in place: meanwhile an empty file config.da!
// says that the fresh one is whole, and the next reading or replacement takes that one. Names of
// the same length make no path too long. What a power cut leaves beside a file is gone after the
// next time it is read or replaced.
//
// None of this helps where the file system has no way to flush, and a full disk without a journal
// may lose both when power goes a second time, while what the first left is taken up.
//
// Where no file can be created next to it for lack of permission, it is written in place without
// this protection.

/// Puts a file with `bytes` in the place of the one at `path`, if there is one. False when it could
/// not be written completely; the old one is then kept. A read-only file is not replaced.
[[nodiscard]] bool ReplaceWhole(FileSteps& steps, StringView path,
                                std::span<const std::byte> bytes);

/// The same with `bytes` at the start of the file, followed by what the old one has after them.
/// A full disk is no obstacle to a file that does not grow, which is then written in place.
[[nodiscard]] bool ReplaceStart(FileSteps& steps, StringView path,
                                std::span<const std::byte> bytes);

/// As FileServices::ReadBinary, of a file that the above have written.
[[nodiscard]] std::optional<BinaryRead> ReadReplaced(FileSteps& steps, StringView path,
                                                     std::size_t size);

}  // namespace tolvane::platform
