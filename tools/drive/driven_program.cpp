#include "tools/drive/driven_program.h"

#include <array>

namespace tolvane::window {
namespace {

constexpr DWORD kEndLimit = 60000;     // ms
constexpr DWORD kForcedLimit = 10000;  // ms

}  // namespace

DrivenProgram::DrivenProgram(const std::filesystem::path& executable) {
  std::wstring command = L"\"" + executable.wstring() + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  if (!CreateProcessW(executable.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      executable.parent_path().c_str(), &startup, &process_)) {
    process_ = {};
  }
}

DrivenProgram::~DrivenProgram() {
  if (!Started()) return;
  if (Running()) {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, kForcedLimit);
  }
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

bool DrivenProgram::Running() const {
  return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

DrivenWindow DrivenProgram::WaitForMainWindow() const {
  HWND window = nullptr;
  WaitUntil([&] {
    window = FindTopWindow(kMainWindowClass, Id());
    return window != nullptr || !Running();
  });
  return DrivenWindow(window);
}

std::optional<DWORD> DrivenProgram::WaitForEnd() const {
  DWORD code = 0;
  if (WaitForSingleObject(process_.hProcess, kEndLimit) != WAIT_OBJECT_0 ||
      !GetExitCodeProcess(process_.hProcess, &code)) {
    return std::nullopt;
  }
  return code;
}

ProgramFolder::ProgramFolder(const std::filesystem::path& source,
                             const std::filesystem::path& target)
    : path_(target) {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
  std::filesystem::create_directories(path_, ignored);
  for (const wchar_t* file : {L"Tolvane.exe", L"qxt100.dll"}) {
    std::filesystem::copy_file(source / file, path_ / file, ignored);
  }
}

ProgramFolder::~ProgramFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path SystemFolder() {
  std::array<wchar_t, MAX_PATH> path{};
  GetSystemDirectoryW(path.data(), static_cast<UINT>(path.size()));
  return path.data();
}

std::filesystem::path OwnFolder() {
  std::array<wchar_t, 1024> path{};
  GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return std::filesystem::path(path.data()).parent_path();
}

}  // namespace tolvane::window
