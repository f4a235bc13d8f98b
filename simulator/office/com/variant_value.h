#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>

#include "simulator/office/value.h"

namespace tolvane::office {

/// What a client put into a call: a text, a 32-bit number, a truth value, an array of BSTR with two
/// dimensions, or an object of this server. Empty for anything else, as the log puts nothing else:
/// texts in an array of VARIANT a real program would take as typed, and make numbers of some.
std::optional<Value> FromVariant(const VARIANT& variant);

}  // namespace tolvane::office
