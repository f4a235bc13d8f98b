#include "simulator/office/com/parent_process.h"

#include <tlhelp32.h>

namespace tolvane::office {
namespace {

DWORD ParentId() {
  const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  if (processes == INVALID_HANDLE_VALUE) return 0;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  DWORD parent = 0;
  for (BOOL more = Process32FirstW(processes, &entry); more != FALSE;
       more = Process32NextW(processes, &entry)) {
    if (entry.th32ProcessID == GetCurrentProcessId()) parent = entry.th32ParentProcessID;
  }
  CloseHandle(processes);
  return parent;
}

}  // namespace

HANDLE OpenParentProcess() { return OpenProcess(SYNCHRONIZE, FALSE, ParentId()); }

}  // namespace tolvane::office
