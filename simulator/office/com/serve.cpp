#include "simulator/office/com/serve.h"

#include <windows.h>

#include <objbase.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/utf8.h"
#include "simulator/office/com/busy_filter.h"
#include "simulator/office/com/class_factory.h"
#include "simulator/office/com/lifetime.h"
#include "simulator/office/com/parent_process.h"
#include "simulator/office/com/registration.h"
#include "simulator/office/com/text.h"
#include "simulator/office/record.h"
#include "simulator/office/script.h"
#include "simulator/office/server.h"

namespace tolvane::office {
namespace {

constexpr DWORD kNoClient_ms = 30'000;
constexpr DWORD kAfterQuit_ms = 1'000;
constexpr DWORD kLook_ms = 100;  // how often both are looked at

std::wstring Environment(const wchar_t* name) {
  std::wstring value(32'768, L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

Script ReadScript() {
  std::ifstream file(std::filesystem::path(Environment(L"TOLVANE_OFFICE_SCRIPT")),
                     std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  return ParseScript(text);
}

/// False when the loop is to end.
bool DispatchMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) return false;
    DispatchMessageW(&message);
  }
  return true;
}

class Deadlines {
 public:
  bool Passed(const Server& server, const Lifetime& lifetime) {
    const ULONGLONG now = GetTickCount64();
    if (!server.QuitAsked()) quit_asked_at_ = now;
    return now - quit_asked_at_ >= kAfterQuit_ms ||
           (!lifetime.HasServed() && now - started_at_ >= kNoClient_ms);
  }

 private:
  ULONGLONG started_at_ = GetTickCount64();
  ULONGLONG quit_asked_at_ = started_at_;
};

void RunMessageLoop(const Server& server, const Lifetime& lifetime) {
  const HANDLE handle = OpenParentProcess();
  const DWORD count = handle == nullptr ? 0 : 1;
  Deadlines deadlines;
  while (DispatchMessages() && !deadlines.Passed(server, lifetime)) {
    const DWORD woken = MsgWaitForMultipleObjects(count, &handle, FALSE, kLook_ms, QS_ALLINPUT);
    if (count == 1 && woken == WAIT_OBJECT_0) return;
  }
}

UINT ServeOnThisThread(const ServedClass& served) {
  const Script script = ReadScript();
  Record record(Environment(L"TOLVANE_OFFICE_RECORD"));
  Server server(FromWide(served.name), FromWide(RegisteredVersion(served)), script, record);
  Lifetime lifetime;
  ClassFactory factory(server, lifetime);
  const BusyFilter filter(server);
  DWORD registration = 0;
  if (FAILED(CoRegisterClassObject(served.id, &factory, CLSCTX_LOCAL_SERVER, REGCLS_SINGLEUSE,
                                   &registration))) {
    return 1;
  }
  RunMessageLoop(server, lifetime);
  record.Line("end");
  CoRevokeClassObject(registration);
  return 0;
}

}  // namespace

void Serve(const ServedClass& served) {
  UINT code = 1;
  if (SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
    code = ServeOnThisThread(served);
  }
  // What a vanished client still holds dies with the process; taking the apartment down would call
  // into objects whose server is gone.
  ExitProcess(code);
}

}  // namespace tolvane::office
