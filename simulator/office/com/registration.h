#pragma once

#include <string>

#include "simulator/office/com/class_ids.h"

namespace tolvane::office {

/// Writes the name, the class id, this program's path and the version text into the registry of
/// the current user. False when the name belongs to another program or the registry refuses.
[[nodiscard]] bool RegisterClassOf(const ServedClass& served, const std::wstring& version);

/// Takes it out again. False when the name belongs to another program; a name that nobody has
/// registered is fine.
[[nodiscard]] bool UnregisterClassOf(const ServedClass& served);

/// The version text that the class was registered with, "" when it is not registered.
std::wstring RegisteredVersion(const ServedClass& served);

}  // namespace tolvane::office
