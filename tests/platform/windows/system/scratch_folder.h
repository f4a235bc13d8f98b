#pragma once

#include <cstddef>
#include <string_view>

#include "platform/string.h"
#include "platform/windows/system/file_bytes.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {

/// An empty folder for one test, gone with everything in it when the test ends.
class ScratchFolder {
 public:
  ScratchFolder() {
    String base(MAX_PATH, u'\0');
    base.resize(GetTempPathW(MAX_PATH, WideData(base)));
    const String number = FromNumber(GetCurrentProcessId());
    for (char16_t letter = u'a'; letter <= u'z'; ++letter) {
      path_ = base + u"tolvane" + number + letter;
      if (CreateDirectoryW(Wide(path_), nullptr) != FALSE) return;
    }
    path_.clear();
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() { Remove(path_); }

  [[nodiscard]] String operator/(StringView name) const { return path_ + u'\\' + String(name); }

  /// Makes a file there.
  bool Put(StringView name, std::string_view content) const {
    const FileHandle file = OpenToWrite(*this / name, CREATE_ALWAYS);
    return file && WriteAll(file, std::as_bytes(std::span(content)));
  }
  /// The content of a file there, empty when there is none.
  [[nodiscard]] std::string Content(StringView name) const {
    const auto read = ReadBytes(*this / name, 1 << 24);
    if (!read) return {};
    return {reinterpret_cast<const char*>(read->bytes.data()), read->bytes.size()};
  }

 private:
  static void Remove(const String& folder) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(Wide(folder + u"\\*"), &found);
    if (search != INVALID_HANDLE_VALUE) {
      do {
        const String name = reinterpret_cast<const char16_t*>(found.cFileName);
        const String path = folder + u'\\' + name;
        SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_NORMAL);
        const bool is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!is_folder) DeleteFileW(Wide(path));
        if (is_folder && name != u"." && name != u"..") Remove(path);
      } while (FindNextFileW(search, &found));
      FindClose(search);
    }
    RemoveDirectoryW(Wide(folder));
  }
  static String FromNumber(DWORD number) {
    String text;
    for (; number > 0; number /= 10) text += static_cast<char16_t>(u'0' + number % 10);
    return text;
  }

  String path_;
};

}  // namespace tolvane::platform::windows
