#include "tests/fuzz/judged_files.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "tests/fuzz/input.h"
#include "tests/fuzz/taking.h"

namespace tolvane::fuzz {
namespace {

/// A line such as "      1200 , 1A0 , 2 ,  00,FF" or, with its format, "      1200 , * , 000001A0 ,
/// 0". Ahead of the time the first one of a file may have zeros of another file's identifiers.
LoggedFrame ReadRecord(std::string_view line, bool has_format, std::string& time) {
  constexpr std::string_view kGap = " , ";
  const std::size_t end = line.find(kGap);
  Require(end != std::string_view::npos);
  time = line.substr(0, end);
  line.remove_prefix(end + kGap.size());
  if (has_format) {
    Require(line.starts_with("* , ") || line.starts_with("  , "));
    line.remove_prefix(4);
  }
  LoggedFrame frame{.id = TakeNumber<std::uint32_t>(line, 16), .length = 0, .data = {}};
  TakeText(line, kGap);
  frame.length = TakeNumber<std::int32_t>(line, 10);
  for (int byte = 0; byte < std::clamp(frame.length, 0, 8); ++byte) {
    TakeText(line, byte == 0 ? " ,  " : ",");
    frame.data[static_cast<std::size_t>(byte)] = TakeByte(line);
  }
  Require(line.empty());
  return frame;
}

/// The records behind a log's head, which any comment may stand in.
void ReadRecords(std::string_view log, JudgedFiles::Logs& logs) {
  constexpr std::string_view kEndOfHead = ",DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n";
  constexpr std::string_view kFormat = ", E ,    ID    ";
  const std::size_t head = log.rfind(kEndOfHead);
  Require(head != std::string_view::npos);
  const bool has_format = log.substr(0, head).ends_with(kFormat);
  log.remove_prefix(head + kEndOfHead.size());
  while (!log.empty()) {
    const std::size_t end = log.find("\r\n");
    Require(end != std::string_view::npos);
    logs.frames.push_back(ReadRecord(log.substr(0, end), has_format, logs.times.emplace_back()));
    log.remove_prefix(end + 2);
  }
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
  ReadRecords(files_.Bytes(path).value_or(""), logs_);
  ++logs_.whole_since;
}

}  // namespace tolvane::fuzz
