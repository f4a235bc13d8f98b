#pragma once

#include <cstdint>

namespace tolvane {

/// From this major version on (Excel 2007) the server is told the file format when it saves.
constexpr std::int32_t kExcelVersionWithFormats = 12;

}  // namespace tolvane
