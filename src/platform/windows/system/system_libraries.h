#pragma once

#include "platform/windows/system/file_services.h"
#include "platform/windows/system/library_loader.h"

// After windows.h, which it needs.
#include <mmsystem.h>

namespace tolvane::platform::windows {

// Functions of Windows that are looked up by name: because not every Windows has them, because
// their library is none of those that the system always takes from its own folder, or because few
// ever need them and their library would lengthen each start. A library of the second kind which
// the program imported would be taken from beside the executable first.

/// Full path of a library of the system.
[[nodiscard]] inline String SystemLibrary(StringView file) {
  return WindowsSpecialFolders().System() + u'\\' + String(file);
}

struct Uxtheme {
  decltype(::OpenThemeData)* OpenThemeData;
  decltype(::CloseThemeData)* CloseThemeData;
  decltype(::DrawThemeBackground)* DrawThemeBackground;
  decltype(::GetThemePartSize)* GetThemePartSize;
};

template <typename Visit>
void ForEachExport(Uxtheme& library, Visit visit) {
  visit("OpenThemeData", library.OpenThemeData);
  visit("CloseThemeData", library.CloseThemeData);
  visit("DrawThemeBackground", library.DrawThemeBackground);
  visit("GetThemePartSize", library.GetThemePartSize);
}

/// Brings the printing system with it, and is for one dialog.
struct Comdlg32 {
  decltype(::ChooseColorW)* ChooseColorW;
};

template <typename Visit>
void ForEachExport(Comdlg32& library, Visit visit) {
  visit("ChooseColorW", library.ChooseColorW);
}

struct Winmm {
  decltype(::timeBeginPeriod)* timeBeginPeriod;
  decltype(::timeEndPeriod)* timeEndPeriod;
};

template <typename Visit>
void ForEachExport(Winmm& library, Visit visit) {
  visit("timeBeginPeriod", library.timeBeginPeriod);
  visit("timeEndPeriod", library.timeEndPeriod);
}

/// What Windows 8 brought.
struct Kernel32Of8 {
  BOOL(WINAPI* SetProcessInformation)(HANDLE process, int kind, void* data, DWORD size);
};

template <typename Visit>
void ForEachExport(Kernel32Of8& library, Visit visit) {
  visit("SetProcessInformation", library.SetProcessInformation);
}

}  // namespace tolvane::platform::windows
