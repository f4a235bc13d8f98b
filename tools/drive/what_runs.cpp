#include "tools/drive/what_runs.h"

// After windows.h, which it needs.
#include <tlhelp32.h>

#include <array>

#include "tools/drive/driven_window.h"

namespace tolvane::window {
namespace {

struct Windows {
  DWORD process;
  std::wstring told;
};

BOOL CALLBACK TellWindow(HWND window, LPARAM windows) {
  Windows& of = *reinterpret_cast<Windows*>(windows);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if (owner != of.process) return TRUE;
  std::array<wchar_t, 64> title{};
  // Asks no message of a program that may not answer.
  InternalGetWindowText(window, title.data(), static_cast<int>(title.size()));
  of.told += L" " + ClassOf(window) + L" \"" + title.data() + L"\"" +
             (IsWindowVisible(window) ? L"" : L" hidden") + L",";
  return TRUE;
}

std::wstring WindowsOf(DWORD process) {
  Windows windows{process, {}};
  EnumWindows(TellWindow, reinterpret_cast<LPARAM>(&windows));
  return windows.told;
}

}  // namespace

std::vector<RunningProgram> RunningPrograms() {
  std::vector<RunningProgram> programs;
  const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  if (list == INVALID_HANDLE_VALUE) return programs;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof(entry);
  for (BOOL more = Process32FirstW(list, &entry); more; more = Process32NextW(list, &entry)) {
    programs.push_back({entry.th32ProcessID, entry.szExeFile});
  }
  CloseHandle(list);
  return programs;
}

std::wstring WhatRuns() {
  std::wstring told;
  for (const RunningProgram& program : RunningPrograms()) {
    told += L"  " + program.name + L" " + std::to_wstring(program.id) + L":" +
            WindowsOf(program.id) + L"\n";
  }
  return told.empty() ? L"the processes cannot be told" : told;
}

}  // namespace tolvane::window
