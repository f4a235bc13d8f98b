#include "tests/window/office_stand_in.h"

#include <windows.h>

#include <algorithm>
#include <fstream>
#include <string_view>

#include "tools/drive/driven_program.h"
#include "tools/drive/driven_window.h"
#include "tools/drive/what_runs.h"

namespace tolvane::window {
namespace {

constexpr DWORD kRegistrationLimit = 60000;  // ms
constexpr DWORD kForcedLimit = 10000;        // ms
constexpr const wchar_t* kProgram = L"tolvane_office.exe";

bool RunStandIn(const std::wstring& words) {
  const std::filesystem::path program = OwnFolder() / L"..\\..\\simulator" / kProgram;
  std::wstring line = L"\"" + program.wstring() + L"\" " + words;
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &process)) {
    return false;
  }
  DWORD code = 1;
  if (WaitForSingleObject(process.hProcess, kRegistrationLimit) == WAIT_OBJECT_0) {
    GetExitCodeProcess(process.hProcess, &code);
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code == 0;
}

void End(DWORD id) {
  HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
  if (process == nullptr) return;
  TerminateProcess(process, 1);
  WaitForSingleObject(process, kForcedLimit);
  CloseHandle(process);
}

/// A server whose activation got lost waits for ever, with the record of its test's folder open:
/// the tests behind it would fail too.
void EndServersThatStayed() {
  for (const RunningProgram& program : RunningPrograms()) {
    if (program.name == kProgram) End(program.id);
  }
}

}  // namespace

OfficeStandIn::OfficeStandIn(const std::filesystem::path& folder, const std::wstring& names)
    : record_(folder / L"office-record.txt"), script_(folder / L"office-script.ini") {
  SetEnvironmentVariableW(L"TOLVANE_OFFICE_RECORD", record_.c_str());
  SetEnvironmentVariableW(L"TOLVANE_OFFICE_SCRIPT", script_.c_str());
  registered_ = RunStandIn(L"/register " + names);
}

OfficeStandIn::~OfficeStandIn() {
  EndServersThatStayed();
  RunStandIn(L"/unregister Excel.Application Ket.Application Access.Application");
  SetEnvironmentVariableW(L"TOLVANE_OFFICE_RECORD", nullptr);
  SetEnvironmentVariableW(L"TOLVANE_OFFICE_SCRIPT", nullptr);
}

void OfficeStandIn::Script(std::string_view lines) const {
  std::ofstream(script_, std::ios::binary) << "[office]\n" << lines;
}

std::vector<std::string> OfficeStandIn::Lines() const {
  std::ifstream file(record_, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

bool OfficeStandIn::WaitForEnd() const {
  return WaitUntil([this] {
    const std::vector<std::string> lines = Lines();
    const auto begun = std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.starts_with("create ");
    });
    return begun == std::count(lines.begin(), lines.end(), "end");
  });
}

bool OfficeStandIn::Forget() const {
  if (!WaitForEnd()) return false;
  std::error_code error;
  // The last server closes its record a moment after its last line.
  return WaitUntil([&] {
    std::filesystem::remove(record_, error);
    return !std::filesystem::exists(record_);
  });
}

bool OfficeStandIn::WaitForLine(std::string_view text) const {
  return WaitUntil([&] {
    const std::vector<std::string> lines = Lines();
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
      return line.find(text) != std::string::npos;
    });
  });
}

}  // namespace tolvane::window
