#include "tests/fuzz/judged_files.h"

#include <algorithm>
#include <utility>

#include "tests/fuzz/input.h"

namespace tolvane::fuzz {
namespace {

/// The lines behind a log's head, which any comment may stand in.
std::size_t RecordLines(const std::string& log) {
  constexpr std::string_view kEndOfHead = ",DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n";
  const std::size_t head = log.rfind(kEndOfHead);
  Require(head != std::string::npos);
  const auto first = log.begin() + static_cast<std::ptrdiff_t>(head + kEndOfHead.size());
  return static_cast<std::size_t>(std::count(first, log.end(), '\n'));
}

}  // namespace

/// Notes its end once: whole when all was written and it was closed.
class JudgedFiles::Stream final : public platform::TextStream {
 public:
  Stream(JudgedFiles& files, StringView path, std::unique_ptr<platform::TextStream> stream)
      : files_(files), path_(path), stream_(std::move(stream)) {}
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  ~Stream() override { files_.Note(is_whole_, path_); }

  bool Write(StringView text) override { return stream_->Write(text); }
  bool WriteAscii(std::string_view text) override { return stream_->WriteAscii(text); }
  bool Close() override { return is_whole_ = stream_->Close(); }

 private:
  JudgedFiles& files_;
  String path_;
  std::unique_ptr<platform::TextStream> stream_;
  bool is_whole_ = false;  // the program closes only what it could write
};

std::unique_ptr<platform::TextStream> JudgedFiles::CreateTextFile(StringView path, bool overwrite,
                                                                  bool unicode) {
  auto stream = files_.CreateTextFile(path, overwrite, unicode);
  if (stream == nullptr) {
    Note(false, path);
    return nullptr;
  }
  return std::make_unique<Stream>(*this, path, std::move(stream));
}

void JudgedFiles::Note(bool is_whole, StringView path) {
  if (!is_whole) {
    ++logs_.failures;
    logs_.whole_since = 0;
    return;
  }
  logs_.lines += RecordLines(files_.Bytes(path).value_or(""));
  ++logs_.whole_since;
}

}  // namespace tolvane::fuzz
