#pragma once

#include <windows.h>

#include <cstddef>
#include <filesystem>

namespace tolvane::window {

/// Whether the window and all in it are painted and what the screen shows there has not changed for
/// a tenth of a second; waits for it, at most two seconds.
bool AwaitPainted(HWND window);

/// Saves what the screen shows where `window` stands, frame and title included, as a bitmap file
/// of 24 bits a pixel. False when it could not be taken or written.
[[nodiscard]] bool SaveScreenPicture(HWND window, const std::filesystem::path& file);

/// How many pixels of exactly this colour the screen shows where `window` stands.
[[nodiscard]] std::size_t CountScreenPixels(HWND window, COLORREF colour);

}  // namespace tolvane::window
