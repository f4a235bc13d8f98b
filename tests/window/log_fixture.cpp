#include "tests/window/log_fixture.h"
#include "tests/window/control_ids.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <regex>

namespace tolvane::window {

std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& folder,
                                           std::wstring_view prefix, std::wstring_view extension) {
  std::vector<std::filesystem::path> found;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    const std::wstring name = entry.path().filename().wstring();
    if (name.starts_with(prefix) && name.ends_with(extension)) found.push_back(entry.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

std::string FileBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::wstring NumberedName(const wchar_t* prefix, int hours_ahead, int number,
                          const wchar_t* extension) {
  constexpr ULONGLONG kHour = 36'000'000'000;  // 100 ns
  SYSTEMTIME time;
  GetLocalTime(&time);
  FILETIME file_time;
  SystemTimeToFileTime(&time, &file_time);
  ULARGE_INTEGER ticks{{file_time.dwLowDateTime, file_time.dwHighDateTime}};
  ticks.QuadPart += kHour * static_cast<unsigned>(hours_ahead);
  file_time = {ticks.LowPart, ticks.HighPart};
  FileTimeToSystemTime(&file_time, &time);
  std::array<wchar_t, 64> name{};
  swprintf(name.data(), name.size(), L"%ls%02d%02d%02d%02d-%03d%ls", prefix, time.wYear % 100,
           time.wMonth, time.wDay, time.wHour, number, extension);
  return name.data();
}

void FillNumbers(const std::filesystem::path& folder, const wchar_t* prefix,
                 const wchar_t* extension) {
  for (const int hour : {0, 1}) {
    for (int number = 1; number < 1000; ++number) {
      std::ofstream(folder / NumberedName(prefix, hour, number, extension)).flush();
    }
  }
}

std::string WithoutDate(std::string log) {
  constexpr std::string_view kBehindTheDate = ",,,bit rate";
  const std::size_t end = log.find(kBehindTheDate);
  if (end == std::string::npos) return log;
  const std::size_t begin = log.rfind('\n', end) + 1;
  static const std::regex kDate(R"(\d{4}/\d{1,2}/\d{1,2}( \d{1,2}:\d{2}:\d{2})?)");
  if (std::regex_match(log.substr(begin, end - begin), kDate)) {
    log.replace(begin, end - begin, "DATE");
  }
  return log;
}

namespace {

std::string CsvHead(std::string_view comment, std::string_view columns) {
  std::string head =
      "Tolvane Ver1.23,,,Copyright (C) 2026 Tolvane Project,,,,https://tolvane.example/\r\n"
      "\r\n"
      "DATE,,,bit rate\x81\x46,500k bps\r\n"
      "CANUSB TV100001 \x81\x41V1.02N0.93\r\n"
      "\r\n";
  head.append(comment).append("\r\n\r\n  \x8e\x9e\x8a\xd4[ms] , ").append(columns);
  return head + "DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n";
}

}  // namespace

std::string CsvHead11(std::string_view comment) { return CsvHead(comment, "ID  ,"); }

std::string CsvHead29(std::string_view comment) { return CsvHead(comment, "E ,    ID    ,"); }

std::string PaddedTime(long long time) {
  const std::string text = std::to_string(time);
  return std::string(text.size() < 10 ? 10 - text.size() : 0, ' ') + text;
}

std::string Hex(unsigned long long number, std::size_t width) {
  std::string text;
  for (; number != 0 || text.size() < width; number /= 16) {
    text.insert(text.begin(), "0123456789ABCDEF"[number % 16]);
  }
  return text;
}

std::string CounterBytes(unsigned long long number, std::string_view between) {
  std::string text;
  for (int i = 0; i < 8; ++i, number /= 256) {
    if (i > 0) text += between;
    text += Hex(number % 256, 2);
  }
  return text;
}

void LogRun::StartOn(std::string_view ini) {
  PlugIn("[canusb 1]\n" + std::string(ini), {L"canusbdrv.dll"});
  Start();
}

void LogRun::StartOnRecording(std::string_view lines) {
  std::ofstream(folder_.Path() / L"frames.log", std::ios::binary) << lines;
  StartOn("[bus]\nsource = log\nlog = frames.log\n");
}

DrivenWindow LogRun::OpenLogSettings() { return Open(id::menu_opt_log1); }

bool LogRun::WaitForShown(const std::wstring& text) const {
  return WaitUntil([&] { return main_.Text(id::RTB_MainView).find(text) != std::wstring::npos; });
}

void LogRun::RunUntilShown(const std::wstring& text) {
  ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  EXPECT_TRUE(WaitForShown(text));
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
}

ScratchFolder::ScratchFolder(std::filesystem::path path) : path_(std::move(path)) {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
  std::filesystem::create_directories(path_, ignored);
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

namespace {

constexpr const wchar_t* kShellFolders =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
constexpr const wchar_t* kDesktop = L"Desktop";

void StoreDesktop(const std::wstring& path) {
  RegSetKeyValueW(HKEY_CURRENT_USER, kShellFolders, kDesktop, REG_EXPAND_SZ, path.c_str(),
                  static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

DesktopElsewhere::DesktopElsewhere(std::filesystem::path path) : folder_(std::move(path)) {
  std::array<wchar_t, MAX_PATH> before{};
  DWORD size = sizeof(before);
  if (RegGetValueW(HKEY_CURRENT_USER, kShellFolders, kDesktop,
                   RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND, nullptr, before.data(),
                   &size) == ERROR_SUCCESS) {
    before_ = before.data();
  }
  StoreDesktop(folder_.Path().wstring());
}

DesktopElsewhere::~DesktopElsewhere() {
  if (before_.empty()) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kShellFolders, kDesktop);
  } else {
    StoreDesktop(before_);
  }
}

}  // namespace tolvane::window
