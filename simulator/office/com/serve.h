#pragma once

#include "simulator/office/com/class_ids.h"

namespace tolvane::office {

/// Serves one client from its creation of the program's object on; ends the process.
/// That is when the client has released everything, a second after it asked the program to quit,
/// when the client's process ends, or when no client came within half a minute.
[[noreturn]] void Serve(const ServedClass& served);

}  // namespace tolvane::office
