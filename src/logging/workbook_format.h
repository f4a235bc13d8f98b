#pragma once

#include <cstdint>
#include <optional>

#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane {

/// How the spreadsheet server saves a workbook of the log.
struct WorkbookFormat {
  StringView extension;
  std::optional<std::int32_t> FileFormat;  // what SaveAs is told; before Excel 2007 it is told none
};

/// Nothing for a t_Excel_Format that only a settings file can hold: such a workbook is not saved.
[[nodiscard]] inline std::optional<WorkbookFormat> WorkbookFormatOf(const ELM327_Info& device) {
  constexpr std::int32_t kExcel2007 = 12;
  if (device.ExcelInstallVersion < kExcel2007) return WorkbookFormat{u".xls", std::nullopt};
  switch (device.t_Excel_Format) {
    case 1:
      return WorkbookFormat{u".xls", 56};
    case 2:
      return WorkbookFormat{u".xlsx", 51};
    default:
      return std::nullopt;
  }
}

}  // namespace tolvane
