#pragma once

#include <windows.h>

namespace tolvane::office {

/// Counts the objects that clients hold. When the last one goes, the message loop of the thread
/// that made this ends.
class Lifetime {
 public:
  void Add() {
    ++objects_;
    served_ = true;
  }

  void Remove() {
    if (--objects_ == 0) PostThreadMessageW(thread_, WM_QUIT, 0, 0);
  }

  /// True once there was an object at all.
  [[nodiscard]] bool HasServed() const { return served_; }

 private:
  DWORD thread_ = GetCurrentThreadId();
  long objects_ = 0;
  bool served_ = false;
};

}  // namespace tolvane::office
