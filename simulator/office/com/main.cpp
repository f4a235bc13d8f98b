// The stand-in office program. Options: see README.md beside the folder.
#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "simulator/office/com/registration.h"
#include "simulator/office/com/serve.h"

namespace {

using namespace tolvane::office;

constexpr int kRegistryRefused = 1;
constexpr int kUsage = 2;

std::vector<std::wstring> CommandLineWords() {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (words == nullptr) return {};
  std::vector<std::wstring> out(words, words + count);
  LocalFree(words);
  return out;
}

bool Is(const std::wstring& word, const wchar_t* option) {
  return lstrcmpiW(word.c_str(), option) == 0;
}

/// Names with versions between them: a version belongs to the name ahead of it.
int Register(const std::vector<std::wstring>& words) {
  std::size_t index = 2;
  while (index < words.size()) {
    const ServedClass* const served = FindServedClass(words[index++].c_str());
    if (served == nullptr) return kUsage;
    std::wstring version = L"16.0";
    if (index < words.size() && Is(words[index], L"--version")) {
      if (index + 1 == words.size()) return kUsage;
      version = words[index + 1];
      index += 2;
    }
    if (!RegisterClassOf(*served, version)) return kRegistryRefused;
  }
  return 0;
}

int Unregister(const std::vector<std::wstring>& words) {
  for (std::size_t index = 2; index < words.size(); ++index) {
    const ServedClass* const served = FindServedClass(words[index].c_str());
    if (served == nullptr) return kUsage;
    if (!UnregisterClassOf(*served)) return kRegistryRefused;
  }
  return 0;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  const std::vector<std::wstring> words = CommandLineWords();
  if (words.size() < 3) return kUsage;
  if (Is(words[1], L"/register")) return Register(words);
  if (Is(words[1], L"/unregister")) return Unregister(words);
  const ServedClass* const served = FindServedClass(words[2].c_str());
  if (!Is(words[1], L"/serve") || served == nullptr) return kUsage;
  Serve(*served);
}
