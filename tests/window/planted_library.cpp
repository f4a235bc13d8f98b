// A library that must not be loaded: it leaves a file next to itself and refuses.
#include <windows.h>

#include <array>
#include <cwchar>

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void* /*reserved*/) {
  if (reason != DLL_PROCESS_ATTACH) return TRUE;
  constexpr wchar_t kMark[] = L".loaded";
  std::array<wchar_t, 1024> path{};
  const DWORD length = GetModuleFileNameW(library, path.data(), static_cast<DWORD>(path.size()));
  if (length + std::size(kMark) <= path.size()) {
    wcscat(path.data(), kMark);
    CloseHandle(CreateFileW(path.data(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  }
  return FALSE;
}
