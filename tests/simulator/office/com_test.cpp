// The stand-in as a process of its own: registered, created by name, driven across processes.
#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>
#include <tlhelp32.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include "tests/simulator/office/com_client.h"
#include "tests/simulator/office/direct_client.h"

namespace tolvane::office {
namespace {

using Handle = SampleClient::Handle;

constexpr wchar_t kExcel[] = L"Excel.Application";

std::filesystem::path Program() { return std::filesystem::path(TOLVANE_OFFICE_EXE); }

std::wstring Quoted(const std::wstring& text) { return L"\"" + text + L"\""; }

/// The exit code of a program run with these words.
DWORD RunProgram(const std::filesystem::path& program, const std::wstring& words) {
  std::wstring line = Quoted(program.wstring()) + L" " + words;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &process) == FALSE) {
    return 0xFFFFFFFF;
  }
  WaitForSingleObject(process.hProcess, 30'000);
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

DWORD RunStandIn(const std::wstring& words) { return RunProgram(Program(), words); }

int RunningServers() {
  const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  int count = 0;
  for (BOOL more = Process32FirstW(processes, &entry); more != FALSE;
       more = Process32NextW(processes, &entry)) {
    if (lstrcmpiW(entry.szExeFile, Program().filename().c_str()) == 0) ++count;
  }
  CloseHandle(processes);
  return count;
}

/// True when all servers are gone within ten seconds.
bool ServersEnd() {
  for (int tries = 0; tries < 100 && RunningServers() != 0; ++tries) Sleep(100);
  return RunningServers() == 0;
}

class OfficeProcess : public testing::Test {
 protected:
  OfficeProcess() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    SetEnvironmentVariableW(L"TOLVANE_OFFICE_RECORD", (folder_ / "record.txt").c_str());
    SetEnvironmentVariableW(L"TOLVANE_OFFICE_SCRIPT", (folder_ / "script.ini").c_str());
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  }
  ~OfficeProcess() override {
    CoUninitialize();
    RunStandIn(L"/unregister Excel.Application Ket.Application Access.Application");
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
  }

  std::string Read(const char* name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void WriteScript(const char* text) const {
    std::ofstream(folder_ / "script.ini") << "[office]\n" << text;
  }
  String Path(const char* name) const { return (folder_ / name).u16string(); }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / "tolvane_office_process";
};

TEST_F(OfficeProcess, AnswersTheVersionUnderEachNameAndEndsWithItsLastClient) {
  ASSERT_EQ(
      RunStandIn(L"/register Excel.Application --version 16.0 Ket.Application --version \"9 x\" "
                 L"Access.Application --version \"\""),
      0U);
  struct Row {
    const wchar_t* name;
    const char16_t* version;
  };
  for (const Row& row :
       {Row{kExcel, u"16.0"}, Row{L"Ket.Application", u"9 x"}, Row{L"Access.Application", u""}}) {
    ComClient client(row.name);
    ASSERT_EQ(client.Created(), S_OK);
    EXPECT_EQ(client.GetText(kProgram, u"version"), row.version);
    EXPECT_TRUE(client.failures.empty());
    EXPECT_EQ(RunningServers(), 1);
    client.Release();
    EXPECT_TRUE(ServersEnd());
  }
  EXPECT_EQ(Read("record.txt"),
            "create Excel.Application\nget Version\nend\n"
            "create Ket.Application\nget Version\nend\n"
            "create Access.Application\nget Version\nend\n");
}

TEST_F(OfficeProcess, AFlushAcrossProcessesGivesTheBytesOfOneInside) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  ComClient client(kExcel);
  ASSERT_EQ(client.Created(), S_OK);
  client.Put(kProgram, u"Visible", false);
  client.Put(client.Get(kProgram, u"Application", {}), u"DisplayAlerts", false);
  WriteSampleBook(client, Path("outside.xlsx"), 51, 20'001);
  WriteSampleBook(client, Path("outside.xls"), 0, 20'001);
  EXPECT_TRUE(client.failures.empty());
  client.Call(kProgram, u"Quit", {}, {});
  client.Release();

  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient inside(server);
  inside.Put(kProgram, u"DisplayAlerts", false);
  WriteSampleBook(inside, Path("inside.xlsx"), 51, 20'001);
  WriteSampleBook(inside, Path("inside.xls"), 0, 20'001);
  ASSERT_GT(Read("inside.xlsx").size(), 1'000'000U);
  EXPECT_TRUE(Read("outside.xlsx") == Read("inside.xlsx"));
  EXPECT_TRUE(Read("outside.xls") == Read("inside.xls"));
  EXPECT_TRUE(ServersEnd());
}

TEST_F(OfficeProcess, TextsThatARealProgramWouldTakeAsTypedAreRefused) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  ComClient client(kExcel, VT_VARIANT);
  ASSERT_EQ(client.Created(), S_OK);
  client.Call(client.Get(kProgram, u"Workbooks", {}), u"Add", {}, {});
  const Handle cell = client.Get(client.Get(kProgram, u"ActiveSheet", {}), u"cells", {1, 1});
  ASSERT_TRUE(client.failures.empty());
  client.Put(cell, u"Value", Table{1, 1, {u"7E8"}});
  client.Put(cell, u"Value", String(u"7E8"));
  EXPECT_EQ(client.failures, (std::vector<HRESULT>{DISP_E_TYPEMISMATCH, DISP_E_TYPEMISMATCH}));
}

TEST_F(OfficeProcess, AScriptedFailureReachesTheClientAsAnException) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  WriteScript("fail_at = 2\n");
  ComClient client(kExcel);
  ASSERT_EQ(client.Created(), S_OK);
  client.Put(kProgram, u"Visible", false);
  EXPECT_TRUE(client.failures.empty());
  client.Put(kProgram, u"Interactive", false);
  EXPECT_EQ(client.failures, std::vector<HRESULT>{static_cast<HRESULT>(kRefused)});
  client.Put(kProgram, u"Interactive", false);
  EXPECT_EQ(client.failures.size(), 1U);
}

TEST_F(OfficeProcess, ABusyServerTurnsCallsAwayInFourWays) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  struct Row {
    const char* way;
    std::uint32_t code;
  };
  for (const Row& row : {Row{"rejected", 0x80010001}, Row{"later", 0x8001010A},
                         Row{"suspended", 0x800AC472}, Row{"exception", 0x800AC472}}) {
    std::filesystem::remove(folder_ / "record.txt");
    WriteScript(("busy_at = 1\nbusy_calls = 1\nbusy_as = " + std::string(row.way) + "\n").c_str());
    ComClient client(kExcel);
    ASSERT_EQ(client.Created(), S_OK) << row.way;
    client.Put(kProgram, u"Visible", false);
    EXPECT_EQ(client.failures, std::vector<HRESULT>{static_cast<HRESULT>(row.code)}) << row.way;
    client.Put(kProgram, u"Visible", false);
    EXPECT_EQ(client.failures.size(), 1U) << row.way;
    client.Release();
    EXPECT_TRUE(ServersEnd());
    EXPECT_EQ(Read("record.txt"), "create Excel.Application\nbusy\nput Visible = False\nend\n");
  }
}

TEST_F(OfficeProcess, ABusyServerTurnsItsCreationAway) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  CLSID id;
  ASSERT_EQ(CLSIDFromProgID(kExcel, &id), S_OK);
  for (const auto& [way, code] : {std::pair("rejected", RPC_E_CALL_REJECTED),
                                  std::pair("later", RPC_E_SERVERCALL_RETRYLATER)}) {
    WriteScript(("busy_calls = 1\nbusy_as = " + std::string(way) + "\n").c_str());
    void* made = nullptr;
    ASSERT_EQ(CoGetClassObject(id, CLSCTX_LOCAL_SERVER, nullptr, IID_IClassFactory, &made), S_OK);
    auto* const factory = static_cast<IClassFactory*>(made);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &made), code) << way;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &made), S_OK) << way;
    if (made != nullptr) static_cast<IDispatch*>(made)->Release();
    factory->Release();
    EXPECT_TRUE(ServersEnd());
  }
}

TEST_F(OfficeProcess, ACallInAnotherLanguageFindsNoEnglishName) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  ComClient client(kExcel);
  ASSERT_EQ(client.Created(), S_OK);
  client.locale = LOCALE_USER_DEFAULT;
  client.Put(kProgram, u"Visible", false);
  EXPECT_EQ(client.failures, std::vector<HRESULT>{DISP_E_UNKNOWNNAME});
}

/// True when the machine's classes have this key and it is more than a link to the user's.
bool IsRegisteredForTheMachine(const std::wstring& name) {
  HKEY key = nullptr;
  const std::wstring path = L"Software\\Classes\\" + name;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), REG_OPTION_OPEN_LINK, KEY_READ, &key) !=
      ERROR_SUCCESS) {
    return false;
  }
  DWORD keys = 0;
  DWORD values = 0;
  RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                   nullptr, nullptr, nullptr);
  DWORD type = REG_NONE;
  RegQueryValueExW(key, L"SymbolicLinkValue", nullptr, &type, nullptr, nullptr);
  RegCloseKey(key);
  return keys != 0 || values != 1 || type != REG_LINK;
}

bool Exists(HKEY root, const std::wstring& name) {
  HKEY key = nullptr;
  const std::wstring path = L"Software\\Classes\\" + name;
  if (RegOpenKeyExW(root, path.c_str(), REG_OPTION_OPEN_LINK, KEY_READ, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

TEST_F(OfficeProcess, IsRegisteredForTheCurrentUserAlone) {
  constexpr wchar_t kClass[] = L"CLSID\\{6B1D2F80-3C55-4E0A-8F21-5D907A4CE101}";
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  for (const wchar_t* const name : {kExcel, kClass}) {
    EXPECT_TRUE(Exists(HKEY_CURRENT_USER, name));
    EXPECT_FALSE(IsRegisteredForTheMachine(name));
  }
  ASSERT_EQ(RunStandIn(L"/unregister Excel.Application"), 0U);
  for (const wchar_t* const name : {kExcel, kClass}) {
    EXPECT_FALSE(Exists(HKEY_CURRENT_USER, name));
    EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, name));
  }
}

TEST_F(OfficeProcess, AnUnknownNameIsToldAsSuch) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  ComClient client(kExcel);
  ASSERT_EQ(client.Created(), S_OK);
  client.Call(kProgram, u"Calculate", {}, {});
  EXPECT_EQ(client.failures, std::vector<HRESULT>{DISP_E_UNKNOWNNAME});
}

TEST_F(OfficeProcess, ARefusedCreationFailsAndLeavesNoProcess) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  WriteScript("fail_creation = 1\n");
  ComClient client(kExcel);
  EXPECT_TRUE(FAILED(client.Created()));
  EXPECT_TRUE(ServersEnd());
}

TEST_F(OfficeProcess, EndsSoonAfterQuitThoughTheClientHoldsOn) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  ComClient client(kExcel);
  ASSERT_EQ(client.Created(), S_OK);
  client.Call(kProgram, u"Quit", {}, {});
  EXPECT_TRUE(client.failures.empty());
  EXPECT_TRUE(ServersEnd());
}

TEST_F(OfficeProcess, EndsWhenItsClientDiesWithoutReleasing) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  ASSERT_EQ(RunProgram(TOLVANE_ABANDONING_CLIENT_EXE, L""), 0U);
  EXPECT_TRUE(ServersEnd());
  EXPECT_EQ(Read("record.txt"), "create Excel.Application\nend\n");
}

TEST_F(OfficeProcess, AnUnregisteredNameIsNotThere) {
  ASSERT_EQ(RunStandIn(L"/register Excel.Application"), 0U);
  ASSERT_EQ(RunStandIn(L"/unregister Excel.Application"), 0U);
  ComClient client(kExcel);
  EXPECT_TRUE(FAILED(client.Created()));
}

TEST_F(OfficeProcess, ANameOfAnotherProgramIsLeftAlone) {
  constexpr wchar_t kForeign[] = L"{00000000-1111-2222-3333-444444444444}";
  RegSetKeyValueW(HKEY_CLASSES_ROOT, L"Ket.Application\\CLSID", nullptr, REG_SZ, kForeign,
                  sizeof kForeign);
  EXPECT_EQ(RunStandIn(L"/register Ket.Application"), 1U);
  EXPECT_EQ(RunStandIn(L"/unregister Ket.Application"), 1U);
  wchar_t owner[64] = L"";
  DWORD size = sizeof owner;
  RegGetValueW(HKEY_CLASSES_ROOT, L"Ket.Application\\CLSID", nullptr, RRF_RT_REG_SZ, nullptr, owner,
               &size);
  EXPECT_STREQ(owner, kForeign);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Ket.Application");
}

TEST_F(OfficeProcess, WordsThatItDoesNotKnowAreRefused) {
  for (const wchar_t* words : {L"", L"/register", L"/register Word.Application", L"/serve x",
                               L"/register Excel.Application --version", L"/other x"}) {
    EXPECT_EQ(RunStandIn(words), 2U) << std::filesystem::path(words).string();
  }
}

}  // namespace
}  // namespace tolvane::office
