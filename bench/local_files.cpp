#include "bench/local_files.h"

#include <cstdio>
#include <string>
#include <utility>

namespace tolvane {
namespace {

/// Encodes a text at once and writes it in large pieces.
class LocalTextStream final : public platform::TextStream {
 public:
  LocalTextStream(const std::filesystem::path& path, platform::CodePage& code_page)
      : file_(std::fopen(path.c_str(), "wb")), code_page_(code_page) {}
  ~LocalTextStream() override { (void)Close(); }
  LocalTextStream(const LocalTextStream&) = delete;
  LocalTextStream& operator=(const LocalTextStream&) = delete;

  bool Write(StringView text) override {
    bytes_.clear();
    code_page_.Encode(text, bytes_);
    return file_ != nullptr && std::fwrite(bytes_.data(), 1, bytes_.size(), file_) == bytes_.size();
  }
  bool Close() override {
    std::FILE* const file = std::exchange(file_, nullptr);
    return file != nullptr && std::fclose(file) == 0;
  }

 private:
  std::FILE* file_;
  platform::CodePage& code_page_;
  std::string bytes_;
};

}  // namespace

std::unique_ptr<platform::TextStream> LocalFiles::CreateTextFile(StringView path, bool, bool) {
  return std::make_unique<LocalTextStream>(Local(path), code_page_);
}

}  // namespace tolvane
