#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "platform/code_page.h"
#include "platform/file_services.h"

namespace tolvane {

/// Log files in one real folder of this machine, whichever folder the program names. Only writing
/// text files and looking for them works.
class LocalFiles final : public platform::FileServices {
 public:
  LocalFiles(std::filesystem::path folder, platform::CodePage& code_page)
      : folder_(std::move(folder)), code_page_(code_page) {}

  bool FolderExists(StringView) override { return true; }
  bool FileExists(StringView path) override { return std::filesystem::exists(Local(path)); }
  std::vector<String> FileNames(StringView) override { return {}; }
  bool CreateFolder(StringView) override { return false; }
  std::unique_ptr<platform::TextStream> CreateTextFile(StringView path, bool overwrite,
                                                       bool unicode) override;
  bool DeleteFile(StringView, bool) override { return false; }
  std::optional<platform::BinaryRead> ReadBinary(StringView, std::size_t) override { return {}; }
  bool WriteBinary(StringView, std::span<const std::byte>) override { return false; }
  std::optional<std::int32_t> Attributes(StringView) override { return {}; }

 private:
  [[nodiscard]] std::filesystem::path Local(StringView path) const {
    return folder_ / std::filesystem::path(path.substr(path.rfind(u'\\') + 1));
  }

  std::filesystem::path folder_;
  platform::CodePage& code_page_;
};

}  // namespace tolvane
