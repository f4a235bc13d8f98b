#pragma once

#include <windows.h>

namespace tolvane::office {

/// The process that started this one, to be waited for; null when it cannot be opened.
///
/// Wine starts a server from its client's process, so its end tells that the client died without
/// releasing what it held, which no message tells there. On Windows the parent is a service that
/// stays, and the system itself releases what a dead client held.
class ParentProcess {
 public:
  ParentProcess();
  ~ParentProcess();
  ParentProcess(const ParentProcess&) = delete;
  ParentProcess& operator=(const ParentProcess&) = delete;

  [[nodiscard]] HANDLE Handle() const { return handle_; }

 private:
  HANDLE handle_ = nullptr;
};

}  // namespace tolvane::office
