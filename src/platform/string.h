#pragma once

#include <string>
#include <string_view>

namespace tolvane {

/// All text of the program is UTF-16; positions and lengths count UTF-16 units.
using String = std::u16string;
using StringView = std::u16string_view;

}  // namespace tolvane
