#pragma once

#include <string>

#include "platform/string.h"

namespace tolvane::office {

/// Appends `text` as UTF-8 element content. Control characters, which XML cannot hold, come out in
/// the workbook format's own manner, "_x0007_".
void AppendXmlText(std::string& out, StringView text);

}  // namespace tolvane::office
