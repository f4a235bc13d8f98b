#pragma once

#include <windows.h>

namespace tolvane::office {

/// The process that started this one, to be waited for as long as this one lives; null when it
/// cannot be opened.
///
/// Wine starts a server from its client's process, so its end tells that the client died without
/// releasing what it held, which no message tells there. On Windows the parent is a service that
/// stays, and the system itself releases what a dead client held.
HANDLE OpenParentProcess();

}  // namespace tolvane::office
