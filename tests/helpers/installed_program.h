#pragma once

#include <array>

#include "platform/memory/memory_platform.h"

namespace tolvane {

inline const String kFolder = u"C:\\Tolvane";
inline const String kSystem = u"C:\\Windows\\System32";

inline void InstallFile(platform::memory::MemoryPlatform& memory, const String& folder,
                        StringView file) {
  memory.files.AddFile(folder + u"\\" + String(file), "MZ");
}

/// The disk of a machine as an installation leaves it: support library and desktop, and the three
/// vendors' libraries in the system's folder.
inline void InstallProgram(platform::memory::MemoryPlatform& memory) {
  memory.files.AddFolder(kFolder);
  memory.files.AddFolder(kSystem);
  memory.files.AddFolder(memory.folders.Desktop());
  InstallFile(memory, kFolder, u"qxt100.dll");
  for (const StringView library : {u"canusbdrv.dll", u"IFCan.dll", u"canlib32.dll"}) {
    InstallFile(memory, kSystem, library);
  }
}

/// Of the four workers.
template <typename Memory>
[[nodiscard]] auto TimersOf(Memory& memory) {
  return std::array{&memory.FormBG, &memory.FormBG2, &memory.FormBG_29, &memory.FormBG2_29};
}

}  // namespace tolvane
