#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>

#include "simulator/office/value.h"

namespace tolvane::office {

/// What a client put into a call: texts, whole and other numbers, truth values, arrays of texts
/// with one or two dimensions (of BSTR or of VARIANT), objects of this server, each also by
/// reference. Empty for anything else. The variant stays as it is.
std::optional<Value> FromVariant(VARIANT& variant);

}  // namespace tolvane::office
