// The surroundings of the real program: libraries next to it, other windows, a system without some
// part.
#include <algorithm>
#include <array>
#include <list>
#include <string>
#include <vector>

#include "tests/window/control_ids.h"
#include "tests/window/dialog_fixture.h"
#include "tests/window/log_fixture.h"
#include "tools/drive/text.h"
// After windows.h, which it needs.
#include <tlhelp32.h>

namespace tolvane::window {
namespace {

using Surroundings = RealProgram;

/// Which file a library is taken from, where the test's system is Wine: "" none, "native,builtin"
/// the one that Windows would take. Windows itself does not look at it.
class LibraryChoice {
 public:
  LibraryChoice(const wchar_t* library, const std::wstring& choice) : library_(library) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, library_, REG_SZ, choice.c_str(),
                    static_cast<DWORD>((choice.size() + 1) * sizeof(wchar_t)));
  }
  ~LibraryChoice() { RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, library_); }
  LibraryChoice(const LibraryChoice&) = delete;
  LibraryChoice& operator=(const LibraryChoice&) = delete;

 private:
  static constexpr const wchar_t* kKey = L"Software\\Wine\\AppDefaults\\Tolvane.exe\\DllOverrides";
  const wchar_t* library_;
};

// Libraries of the system that it does not insist on taking from its own folder.
constexpr std::array kPlanted{L"uxtheme", L"winmm", L"msftedit"};

TEST_F(Surroundings, NoLibraryBesideTheProgramTakesThePlaceOfOneOfTheSystem) {
  // A planted library that is loaded tells.
  const std::filesystem::path loaded = folder_.Path() / L"loaded_here.dll";
  std::filesystem::copy_file(OwnFolder() / L"tolvane_planted.dll", loaded);
  EXPECT_EQ(LoadLibraryW(loaded.c_str()), nullptr) << "it refuses";
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / L"loaded_here.dll.loaded"));

  std::list<LibraryChoice> as_on_windows;
  for (const wchar_t* name : kPlanted) {
    as_on_windows.emplace_back(name, L"native,builtin");
    std::filesystem::copy_file(OwnFolder() / L"tolvane_planted.dll",
                               folder_.Path() / (std::wstring(name) + L".dll"));
  }
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const DrivenWindow window = StartProgram();
  ASSERT_TRUE(window.Exists());
  ASSERT_NO_FATAL_FAILURE(Connect(window));
  ASSERT_NO_FATAL_FAILURE(Disconnect(window));
  // The settings dialog draws by the visual style.
  window.Command(id::menu_common_setting);
  EXPECT_TRUE(WaitUntil(
      [&] { return FindTopWindow(L"TolvaneSettingsDialog", program_->Id()) != nullptr; }));
  for (const wchar_t* name : kPlanted) {
    // Wine itself asks for this one by its bare name before the program's first line; the planted
    // one has then refused and the program has continued.
    if (OnWine() && std::wstring_view(name) == L"uxtheme") continue;
    EXPECT_FALSE(std::filesystem::exists(folder_.Path() / (std::wstring(name) + L".dll.loaded")))
        << Utf8(name);
  }
}

/// The names of the libraries that a process has loaded.
std::vector<std::wstring> LoadedLibraries(DWORD process) {
  std::vector<std::wstring> names;
  const HANDLE modules = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process);
  MODULEENTRY32W module{};
  module.dwSize = sizeof(module);
  for (BOOL more = Module32FirstW(modules, &module); more; more = Module32NextW(modules, &module)) {
    names.emplace_back(module.szModule);
  }
  CloseHandle(modules);
  return names;
}

// A program without it says nothing, and its ticks come at the coarse pace of the system.
TEST_F(Surroundings, TheLibraryOfTheTimersResolutionIsFound) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_TRUE(StartProgram().Exists());
  const std::vector<std::wstring> loaded = LoadedLibraries(program_->Id());
  EXPECT_TRUE(std::ranges::any_of(loaded, [](const std::wstring& name) {
    return lstrcmpiW(name.c_str(), L"winmm.dll") == 0;
  })) << loaded.size();
}

// Wine ignores what these calls ask for and does not report it. The test can only check that the
// program imports them, which nothing else in it needs.
TEST_F(Surroundings, TheProgramCanMakeTheCallsThatOnlyWindowsHeeds) {
  const std::string program = FileBytes(folder_.Executable());
  // The current folder in the search for libraries, the ghost of a window that does not answer, the
  // reason that holds up a shutdown, folders dropped on a window with more rights than Explorer's.
  for (const char* call : {"SetDllDirectoryW", "DisableProcessWindowsGhosting",
                           "ShutdownBlockReasonCreate", "ChangeWindowMessageFilterEx"}) {
    EXPECT_NE(program.find(call), std::string::npos) << call;
  }
}

TEST_F(Surroundings, AControlThatCannotBeMadeEndsTheStartWithAMessage) {
  if (!OnWine()) GTEST_SKIP() << "Windows cannot be told to do without one of its libraries";
  const LibraryChoice without(L"msftedit", L"");
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const std::optional<ShownMessage> message = StartToMessage();
  ASSERT_TRUE(message);
  EXPECT_EQ(Utf8(message->title), Utf8(L"Tolvane Ver1.23"));
  EXPECT_EQ(Utf8(message->text),
            Utf8(L"ウィンドウを作成できません。\r\nアプリケーションを終了します。"));
  KeepPicture(message->box, "message");
  ASSERT_TRUE(Press(*message, IDOK));
  EXPECT_EQ(program_->WaitForEnd(), 1u);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / L"lglist.dat"));
}

DWORD ProcessOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

TEST_F(Surroundings, TheForegroundPassesFromTheSplashToTheMainWindow) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const HWND another = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                       300, 200, nullptr, nullptr, nullptr, nullptr);
  ASSERT_TRUE(SetForegroundWindow(another));
  program_.emplace(folder_.Executable());
  ASSERT_TRUE(program_->Started());

  HWND main = nullptr;
  bool had_it = false;
  bool gave_it_away = false;
  bool splash_was_seen = false;
  EXPECT_TRUE(WaitUntil([&] {
    // Checked without pauses for a while, since it may last only a few milliseconds.
    for (const ULONGLONG end = GetTickCount64() + 100; GetTickCount64() < end;) {
      MSG waiting;
      while (PeekMessageW(&waiting, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&waiting);
      const bool has_it = ProcessOf(GetForegroundWindow()) == program_->Id();
      gave_it_away = gave_it_away || (had_it && !has_it);
      had_it = had_it || has_it;
      splash_was_seen = splash_was_seen || FindTopWindow(kSplashClass, program_->Id()) != nullptr;
    }
    main = FindTopWindow(kMainWindowClass, program_->Id());
    return main != nullptr;
  }));
  EXPECT_TRUE(splash_was_seen);
  EXPECT_TRUE(had_it);
  EXPECT_FALSE(gave_it_away);
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == main; }));
  DestroyWindow(another);
}

}  // namespace
}  // namespace tolvane::window
