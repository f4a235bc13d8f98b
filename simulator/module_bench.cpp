#include "simulator/module_bench.h"

#include <windows.h>

#include <filesystem>
#include <string>

namespace tolvane::simulator {
namespace {

constexpr DWORD kLongestPath = 32'768;

std::filesystem::path ModuleFolder() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&LoadModuleBench), &module);
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), kLongestPath));
  return std::filesystem::path(path).parent_path();
}

std::filesystem::path NamedFile() {
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetEnvironmentVariableW(L"TOLVANE_BENCH", path.data(), kLongestPath));
  return path;
}

}  // namespace

std::unique_ptr<Bench> LoadModuleBench(std::string_view library) {
  return LoadBench(library, NamedFile(), ModuleFolder());
}

}  // namespace tolvane::simulator
