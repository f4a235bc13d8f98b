#pragma once

#include <cstddef>

#include "platform/string.h"

namespace tolvane::platform::windows {

// The page counts a line end as the two characters CR LF; the rich edit control holds and counts
// the CR alone. `text` is always the control's.

/// The control's position of a page position: one inside a line end is the line end's own, one
/// behind the text the text's end.
[[nodiscard]] std::size_t ControlPosition(StringView text, std::size_t page_position);

/// The page position of a control's position; never beyond the text's end.
[[nodiscard]] std::size_t PagePosition(StringView text, std::size_t control_position);

/// `text` with CR LF for each of its line ends.
[[nodiscard]] String WithPageLineEnds(StringView text);

}  // namespace tolvane::platform::windows
