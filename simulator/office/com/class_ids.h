#pragma once

#include <windows.h>

#include <array>

namespace tolvane::office {

/// A name that clients create the stand-in by, with a class id of the stand-in's own.
struct ServedClass {
  const wchar_t* name;
  CLSID id;
};

inline constexpr std::array<ServedClass, 3> kServedClasses{{
    {L"Excel.Application",
     {0x6b1d2f80, 0x3c55, 0x4e0a, {0x8f, 0x21, 0x5d, 0x90, 0x7a, 0x4c, 0xe1, 0x01}}},
    {L"Ket.Application",
     {0x6b1d2f80, 0x3c55, 0x4e0a, {0x8f, 0x21, 0x5d, 0x90, 0x7a, 0x4c, 0xe1, 0x02}}},
    {L"Access.Application",
     {0x6b1d2f80, 0x3c55, 0x4e0a, {0x8f, 0x21, 0x5d, 0x90, 0x7a, 0x4c, 0xe1, 0x03}}},
}};

/// Null when the name is none of the three; upper and lower case do not matter.
inline const ServedClass* FindServedClass(const wchar_t* name) {
  for (const ServedClass& served : kServedClasses) {
    if (lstrcmpiW(served.name, name) == 0) return &served;
  }
  return nullptr;
}

}  // namespace tolvane::office
