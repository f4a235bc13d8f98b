#pragma once

#include <string>
#include <vector>

#include "simulator/office/sheet.h"

namespace tolvane::office {

/// The styles part of an Office Open XML workbook: cell format n is `styles[n]`.
std::string StylesXml(const std::vector<CellStyle>& styles);

}  // namespace tolvane::office
