#include "simulator/office/com/class_link.h"

#include <windows.h>

#include <winternl.h>

#include <cstddef>
#include <vector>

namespace tolvane::office {
namespace {

constexpr const wchar_t* kTarget = L"SymbolicLinkValue";

/// The key's name as the system itself calls it, with the user's number; "" when it is not there.
std::wstring SystemName(const std::wstring& user_key) {
  constexpr int kNameInformation = 3;
  using Query = NTSTATUS(NTAPI*)(HANDLE, int, void*, ULONG, ULONG*);
  const auto query = reinterpret_cast<Query>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryKey")));
  HKEY key = nullptr;
  if (query == nullptr || RegOpenKeyExW(HKEY_CURRENT_USER, user_key.c_str(), 0, KEY_QUERY_VALUE,
                                        &key) != ERROR_SUCCESS) {
    return {};
  }
  std::vector<wchar_t> answer(1024);  // the length in bytes, 32 bits wide, and the name
  ULONG filled = 0;
  const NTSTATUS status = query(key, kNameInformation, answer.data(),
                                static_cast<ULONG>(answer.size() * sizeof(wchar_t)), &filled);
  RegCloseKey(key);
  constexpr std::size_t kAhead = sizeof(ULONG) / sizeof(wchar_t);
  if (status < 0 || filled < sizeof(ULONG)) return {};
  return {answer.data() + kAhead, filled / sizeof(wchar_t) - kAhead};
}

}  // namespace

bool ShowAmongAllClasses(const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_QUERY_VALUE, &opened) == ERROR_SUCCESS) {
    RegCloseKey(opened);
    return true;
  }
  const std::wstring target = SystemName(L"Software\\Classes\\" + key);
  if (target.empty() || RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr,
                                        REG_OPTION_CREATE_LINK | REG_OPTION_VOLATILE, KEY_SET_VALUE,
                                        nullptr, &opened, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const LONG result =
      RegSetValueExW(opened, kTarget, 0, REG_LINK, reinterpret_cast<const BYTE*>(target.data()),
                     static_cast<DWORD>(target.size() * sizeof(wchar_t)));
  RegCloseKey(opened);
  return result == ERROR_SUCCESS;
}

void RemoveClassLink(const std::wstring& key) {
  HKEY link = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), REG_OPTION_OPEN_LINK, DELETE | KEY_QUERY_VALUE,
                    &link) != ERROR_SUCCESS) {
    return;
  }
  DWORD type = REG_NONE;
  const bool found =
      RegQueryValueExW(link, kTarget, nullptr, &type, nullptr, nullptr) == ERROR_SUCCESS;
  if (found && type == REG_LINK) RegDeleteKeyW(link, L"");
  RegCloseKey(link);
}

}  // namespace tolvane::office
