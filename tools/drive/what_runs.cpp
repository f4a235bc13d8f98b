#include "tools/drive/what_runs.h"

#include <windows.h>

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

std::wstring WhatRuns() {
  const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  if (list == INVALID_HANDLE_VALUE) return L"the processes cannot be told";
  std::wstring told;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof(entry);
  for (BOOL more = Process32FirstW(list, &entry); more; more = Process32NextW(list, &entry)) {
    told += L"  " + std::wstring(entry.szExeFile) + L" " + std::to_wstring(entry.th32ProcessID) +
            L":" + WindowsOf(entry.th32ProcessID) + L"\n";
  }
  CloseHandle(list);
  return told;
}

}  // namespace tolvane::window
