#include "simulator/office/com/registration.h"

#include <objbase.h>

#include <vector>

#include "simulator/office/com/class_link.h"

namespace tolvane::office {
namespace {

/// The classes of the current user alone: a machine's other users have nothing to do with a test.
constexpr const wchar_t* kUserClasses = L"Software\\Classes\\";
constexpr const wchar_t* kVersionValue = L"StandInVersion";

std::wstring OwnPath() {
  std::wstring path(32'768, L'\0');  // the longest that there is
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

std::wstring IdText(const CLSID& id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return text;
}

std::wstring ClassKey(const ServedClass& served) { return L"CLSID\\" + IdText(served.id); }

std::wstring ReadText(const std::wstring& key, const wchar_t* value) {
  DWORD bytes = 0;
  if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), value, RRF_RT_REG_SZ, nullptr, nullptr,
                   &bytes) != ERROR_SUCCESS) {
    return {};
  }
  std::vector<wchar_t> text(bytes / sizeof(wchar_t) + 1, L'\0');
  if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), value, RRF_RT_REG_SZ, nullptr, text.data(),
                   &bytes) != ERROR_SUCCESS) {
    return {};
  }
  return text.data();
}

bool WriteText(const std::wstring& key, const wchar_t* value, const std::wstring& text) {
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  HKEY opened = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, (kUserClasses + key).c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                      nullptr, &opened, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const LONG result =
      RegSetValueExW(opened, value, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes);
  RegCloseKey(opened);
  return result == ERROR_SUCCESS;
}

void DeleteAll(const std::wstring& key) {
  RemoveClassLink(key);
  RegDeleteTreeW(HKEY_CURRENT_USER, (kUserClasses + key).c_str());
}

/// A real office program may own the name, for this user or for the machine; it must not be
/// touched.
bool IsForeign(const ServedClass& served) {
  const std::wstring owner = ReadText(std::wstring(served.name) + L"\\CLSID", nullptr);
  return !owner.empty() && lstrcmpiW(owner.c_str(), IdText(served.id).c_str()) != 0;
}

}  // namespace

bool RegisterClassOf(const ServedClass& served, const std::wstring& version) {
  const std::wstring name = served.name;
  const std::wstring command = L"\"" + OwnPath() + L"\" /serve " + name;
  return !IsForeign(served) && WriteText(name, nullptr, name) &&
         WriteText(name + L"\\CLSID", nullptr, IdText(served.id)) &&
         WriteText(ClassKey(served), nullptr, name) &&
         WriteText(ClassKey(served), kVersionValue, version) &&
         WriteText(ClassKey(served) + L"\\ProgID", nullptr, name) &&
         WriteText(ClassKey(served) + L"\\LocalServer32", nullptr, command) &&
         ShowAmongAllClasses(name) && ShowAmongAllClasses(ClassKey(served));
}

bool UnregisterClassOf(const ServedClass& served) {
  if (IsForeign(served)) return false;
  DeleteAll(served.name);
  DeleteAll(ClassKey(served));
  return true;
}

std::wstring RegisteredVersion(const ServedClass& served) {
  return ReadText(ClassKey(served), kVersionValue);
}

}  // namespace tolvane::office
