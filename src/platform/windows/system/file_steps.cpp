#include "platform/windows/system/file_steps.h"

#include <array>
#include <string_view>

#include "platform/windows/system/file_bytes.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

/// Of a call that has just returned.
FileStep Outcome(bool succeeded) {
  if (succeeded) return FileStep::kDone;
  switch (GetLastError()) {
    case ERROR_ACCESS_DENIED:  // also while a deleted file is still open somewhere
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return FileStep::kBusy;
    default:
      return FileStep::kFailed;
  }
}

/// What file systems answer that have no way to flush.
bool CannotFlush(DWORD error) {
  return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ||
         error == ERROR_INVALID_PARAMETER;
}

class WindowsOutputFile final : public OutputFile {
 public:
  explicit WindowsOutputFile(FileHandle file) : file_(std::move(file)) {}

  [[nodiscard]] FileStep Write(std::span<const std::byte> bytes) override {
    return Outcome(WriteAll(file_, bytes));
  }
  [[nodiscard]] FileStep EndHere() override { return Outcome(SetEndOfFile(file_.Get()) != FALSE); }
  [[nodiscard]] FileStep Flush() override {
    return Outcome(FlushFileBuffers(file_.Get()) != FALSE || CannotFlush(GetLastError()));
  }
  [[nodiscard]] FileStep Close() override { return Outcome(file_.Close()); }

 private:
  FileHandle file_;
};

FileSteps::Opened Opening(StringView path, DWORD disposition) {
  FileHandle file = OpenToWrite(String(path), disposition);
  const FileStep step = Outcome(static_cast<bool>(file));
  if (!file) return {.step = step};
  return {.step = step, .file = std::make_unique<WindowsOutputFile>(std::move(file))};
}

DWORD RawAttributes(StringView path) { return GetFileAttributesW(Wide(String(path))); }

}  // namespace

FileSteps::Opened WindowsFileSteps::Create(StringView path) { return Opening(path, CREATE_ALWAYS); }

FileSteps::Opened WindowsFileSteps::Open(StringView path) { return Opening(path, OPEN_ALWAYS); }

FileStep WindowsFileSteps::Move(StringView from, StringView to) {
  return Outcome(MoveFileExW(Wide(String(from)), Wide(String(to)),
                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE);
}

bool WindowsFileSteps::MovesWhole(StringView path) {
  std::array<wchar_t, MAX_PATH + 1> root{};
  std::array<wchar_t, MAX_PATH + 1> system{};
  const auto size = static_cast<DWORD>(root.size());
  if (!GetVolumePathNameW(Wide(String(path)), root.data(), size) ||
      !GetVolumeInformationW(root.data(), nullptr, 0, nullptr, nullptr, nullptr, system.data(),
                             size)) {
    return false;
  }
  const std::wstring_view name = system.data();
  return name == L"NTFS" || name == L"ReFS";
}

FileStep WindowsFileSteps::Delete(StringView path) {
  const bool is_gone =
      DeleteFileW(Wide(String(path))) != FALSE || GetLastError() == ERROR_FILE_NOT_FOUND;
  return Outcome(is_gone);
}

bool WindowsFileSteps::Exists(StringView path) {
  return RawAttributes(path) != INVALID_FILE_ATTRIBUTES;
}

bool WindowsFileSteps::IsReadOnly(StringView path) {
  const DWORD attributes = RawAttributes(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

std::optional<BinaryRead> WindowsFileSteps::Read(StringView path, std::size_t size) {
  return ReadBytes(String(path), size);
}

void WindowsFileSteps::Pause(std::int32_t ms) { Sleep(static_cast<DWORD>(ms)); }

}  // namespace tolvane::platform::windows
