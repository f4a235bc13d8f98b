#pragma once

#include "platform/code_page.h"
#include "platform/file_services.h"

namespace tolvane::platform::windows {

class WindowsFileServices final : public FileServices {
 public:
  explicit WindowsFileServices(CodePage& code_page) : code_page_(code_page) {}

  [[nodiscard]] bool FolderExists(StringView path) override;
  [[nodiscard]] bool FileExists(StringView path) override;
  [[nodiscard]] std::vector<String> FileNames(StringView stem) override;
  [[nodiscard]] bool CreateFolder(StringView path) override;
  [[nodiscard]] std::unique_ptr<TextStream> CreateTextFile(StringView path, bool overwrite,
                                                           bool unicode) override;
  bool DeleteFile(StringView path, bool force) override;
  [[nodiscard]] std::optional<BinaryRead> ReadBinary(StringView path, std::size_t size) override;
  [[nodiscard]] bool WriteBinary(StringView path, std::span<const std::byte> bytes) override;
  [[nodiscard]] std::optional<std::int32_t> Attributes(StringView path) override;

 private:
  CodePage& code_page_;
};

class WindowsSpecialFolders final : public SpecialFolders {
 public:
  [[nodiscard]] String Desktop() override;
  [[nodiscard]] String System() override;
};

/// The folder of the program's file, without a trailing backslash.
[[nodiscard]] String ExecutableFolder();

}  // namespace tolvane::platform::windows
