#pragma once

#include <cstring>

#include "platform/string.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {

/// A library loaded by its full path with all exports of `Abi` found, or nothing at all: a file
/// that is missing, no library, of the wrong bitness or short of one export is left unloaded. What
/// is loaded stays so until the process ends, after this object too: a driver's library may have
/// threads that run on.
template <typename Abi>
class LoadedLibrary {
 public:
  /// True when the library can be called. Loading a loaded one changes nothing.
  bool Load(const String& path) {
    if (loaded_) return true;
    // The library's own folder is searched for what it needs in turn.
    ModuleHandle module(LoadLibraryExW(Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!module) return false;
    bool complete = true;
    ForEachExport(exports_, [&](const char* name, auto& function) {
      complete = Resolve(module.Get(), name, function) && complete;
    });
    if (!complete) {
      exports_ = {};
      return false;
    }
    static_cast<void>(module.Release());
    loaded_ = true;
    return true;
  }

  explicit operator bool() const { return loaded_; }
  const Abi* operator->() const { return &exports_; }

 private:
  template <typename Function>
  static bool Resolve(HMODULE module, const char* name, Function*& function) {
    const FARPROC found = GetProcAddress(module, name);
    // A cast between function types would warn, as it should elsewhere.
    static_assert(sizeof(found) == sizeof(function));
    std::memcpy(&function, &found, sizeof(function));
    return found != nullptr;
  }

  bool loaded_ = false;
  Abi exports_{};
};

}  // namespace tolvane::platform::windows
