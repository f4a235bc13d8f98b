#include "platform/windows/system/file_bytes.h"

#include <algorithm>
#include <array>

#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

constexpr std::size_t kLargestStep = 1 << 24;  // bytes in one call; the calls count in 32 bits

}  // namespace

bool MeansNoFile(DWORD error) {
  constexpr auto kNone = std::to_array<DWORD>(
      {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_DRIVE, ERROR_NOT_READY,
       ERROR_REM_NOT_LIST, ERROR_BAD_NETPATH, ERROR_DEV_NOT_EXIST, ERROR_BAD_NET_NAME,
       ERROR_INVALID_NAME, ERROR_BAD_PATHNAME, ERROR_FILENAME_EXCED_RANGE, ERROR_DIRECTORY,
       ERROR_NO_NETWORK, ERROR_NETWORK_UNREACHABLE, ERROR_HOST_UNREACHABLE});
  return std::ranges::find(kNone, error) != kNone.end();
}

FileHandle OpenToWrite(const String& path, DWORD disposition) {
  return FileHandle(CreateFileW(Wide(path), GENERIC_WRITE, FILE_SHARE_READ, nullptr, disposition,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool WriteAll(const FileHandle& file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const std::size_t step = std::min(bytes.size(), kLargestStep);
    DWORD written = 0;
    if (!WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(step), &written, nullptr) ||
        written == 0) {
      return false;
    }
    bytes = bytes.subspan(written);
  }
  return true;
}

std::optional<BinaryRead> ReadBytes(const String& path, std::size_t size) {
  FileHandle file(CreateFileW(Wide(path), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER length;
  if (!file || !GetFileSizeEx(file.Get(), &length)) return std::nullopt;
  const auto wanted = static_cast<std::size_t>(
      std::min<std::uint64_t>(size, static_cast<std::uint64_t>(length.QuadPart)));
  std::vector<std::byte> bytes(wanted);
  std::size_t filled = 0;
  while (filled < wanted) {
    const std::size_t step = std::min(wanted - filled, kLargestStep);
    DWORD read = 0;
    if (!ReadFile(file.Get(), bytes.data() + filled, static_cast<DWORD>(step), &read, nullptr)) {
      return std::nullopt;
    }
    if (read == 0) break;  // the file was cut meanwhile
    filled += read;
  }
  bytes.resize(filled);
  return BinaryRead{std::move(bytes), file.Close()};
}

}  // namespace tolvane::platform::windows
