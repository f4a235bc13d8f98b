#include "platform/windows/system/file_services.h"

#include <shlobj.h>

#include <array>
#include <cwchar>

#include "platform/file_replacing.h"
#include "platform/surrogates.h"
#include "platform/windows/system/file_bytes.h"
#include "platform/windows/system/file_steps.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

/// Characters that are encoded and written at once. Their bytes stay in the processor's cache, and
/// in memory that the heap has already: pages that are new to the process would cost as much again
/// as the writing, in a flush for which reception stands.
constexpr std::size_t kPiece = 1 << 15;

class WindowsTextStream final : public TextStream {
 public:
  WindowsTextStream(FileHandle file, CodePage& code_page)
      : file_(std::move(file)), code_page_(code_page) {}

  [[nodiscard]] bool Write(StringView text) override {
    while (complete_ && !text.empty()) {
      const StringView piece = FrontPiece(text, kPiece);
      bytes_.clear();
      code_page_.Encode(piece, bytes_);
      complete_ = WriteAll(file_, std::as_bytes(std::span(bytes_)));
      text.remove_prefix(piece.size());
    }
    return complete_;
  }

  [[nodiscard]] bool WriteAscii(std::string_view text) override {
    complete_ = complete_ && WriteAll(file_, std::as_bytes(std::span(text)));
    return complete_;
  }

  [[nodiscard]] bool Close() override { return file_.Close() && complete_; }

 private:
  FileHandle file_;
  CodePage& code_page_;
  std::string bytes_;
  bool complete_ = true;
};

DWORD RawAttributes(StringView path) { return GetFileAttributesW(Wide(String(path))); }

}  // namespace

bool WindowsFileServices::FolderExists(StringView path) {
  const DWORD attributes = RawAttributes(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool WindowsFileServices::FileExists(StringView path) {
  const DWORD attributes = RawAttributes(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return !MeansNoFile(GetLastError());
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::vector<String> WindowsFileServices::FileNames(StringView stem) {
  const String pattern = String(stem) + u'*';
  WIN32_FIND_DATAW found{};
  const SearchHandle search(FindFirstFileExW(Wide(pattern), FindExInfoBasic, &found,
                                             FindExSearchNameMatch, nullptr,
                                             FIND_FIRST_EX_LARGE_FETCH));
  std::vector<String> names;
  for (bool more = static_cast<bool>(search); more;
       more = FindNextFileW(search.Get(), &found) != FALSE) {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
    names.emplace_back(FromWide(found.cFileName, std::wcslen(found.cFileName)));
  }
  return names;
}

bool WindowsFileServices::CreateFolder(StringView path) {
  return CreateDirectoryW(Wide(String(path)), nullptr) != FALSE;
}

std::unique_ptr<TextStream> WindowsFileServices::CreateTextFile(StringView path, bool overwrite,
                                                                bool /*unicode*/) {
  FileHandle file = OpenToWrite(String(path), overwrite ? CREATE_ALWAYS : CREATE_NEW);
  if (!file) return nullptr;
  return std::make_unique<WindowsTextStream>(std::move(file), code_page_);
}

bool WindowsFileServices::DeleteFile(StringView path, bool force) {
  const String name(path);
  const DWORD attributes = RawAttributes(path);
  if (force && attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    SetFileAttributesW(Wide(name), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
  }
  return DeleteFileW(Wide(name)) != FALSE;
}

std::optional<BinaryRead> WindowsFileServices::ReadBinary(StringView path, std::size_t size) {
  WindowsFileSteps steps;
  return ReadReplaced(steps, path, size);
}

bool WindowsFileServices::WriteBinary(StringView path, std::span<const std::byte> bytes) {
  WindowsFileSteps steps;
  return ReplaceStart(steps, path, bytes);
}

std::optional<std::int32_t> WindowsFileServices::Attributes(StringView path) {
  const DWORD attributes = RawAttributes(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  return static_cast<std::int32_t>(attributes);
}

String WindowsSpecialFolders::Desktop() {
  std::array<wchar_t, MAX_PATH> path{};
  if (SHGetFolderPathW(nullptr, CSIDL_DESKTOPDIRECTORY, nullptr, SHGFP_TYPE_CURRENT, path.data()) !=
      S_OK) {
    return {};
  }
  return String(FromWide(path.data(), std::char_traits<wchar_t>::length(path.data())));
}

String WindowsSpecialFolders::System() {
  std::array<wchar_t, MAX_PATH> path{};
  const UINT length = GetSystemDirectoryW(path.data(), static_cast<UINT>(path.size()));
  if (length >= path.size()) return {};
  return String(FromWide(path.data(), length));
}

String ExecutableFolder() {
  String path(MAX_PATH, u'\0');
  // Cut, and then tried again with more room, as long as it fills its buffer.
  while (true) {
    const DWORD length =
        GetModuleFileNameW(nullptr, WideData(path), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      break;
    }
    path.resize(path.size() * 2);
  }
  return path.substr(0, path.find_last_of(u'\\'));
}

}  // namespace tolvane::platform::windows
