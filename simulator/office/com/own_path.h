#pragma once

#include <string>

namespace tolvane::office {

/// The full path of this program's file.
std::wstring OwnPath();

}  // namespace tolvane::office
