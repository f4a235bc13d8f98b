#include "bench/local_files.h"

#include <cstdio>
#include <string>
#include <utility>

#include "platform/surrogates.h"

namespace tolvane {
namespace {

constexpr std::size_t kPiece = 1 << 15;  // characters, as in the program

class LocalTextStream final : public platform::TextStream {
 public:
  LocalTextStream(const std::filesystem::path& path, platform::CodePage& code_page)
      : file_(std::fopen(path.c_str(), "wb")), code_page_(code_page) {
    // The pieces are large: the library's buffer would split each in two.
    if (file_ != nullptr) std::setvbuf(file_, nullptr, _IONBF, 0);
  }
  ~LocalTextStream() override { (void)Close(); }
  LocalTextStream(const LocalTextStream&) = delete;
  LocalTextStream& operator=(const LocalTextStream&) = delete;

  bool Write(StringView text) override {
    while (file_ != nullptr && !text.empty()) {
      const StringView piece = FrontPiece(text, kPiece);
      bytes_.clear();
      code_page_.Encode(piece, bytes_);
      if (!Append(bytes_)) return false;
      text.remove_prefix(piece.size());
    }
    return file_ != nullptr;
  }
  bool WriteAscii(std::string_view text) override { return Append(text); }
  bool Close() override {
    std::FILE* const file = std::exchange(file_, nullptr);
    return file != nullptr && std::fclose(file) == 0;
  }

 private:
  bool Append(std::string_view bytes) {
    return file_ != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size();
  }

  std::FILE* file_;
  platform::CodePage& code_page_;
  std::string bytes_;
};

}  // namespace

std::unique_ptr<platform::TextStream> LocalFiles::CreateTextFile(StringView path, bool, bool) {
  return std::make_unique<LocalTextStream>(Local(path), code_page_);
}

}  // namespace tolvane
