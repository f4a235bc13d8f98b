#include "tests/faults/faulty_files.h"

#include <utility>

namespace tolvane::faults {

class FaultyFiles::Stream final : public platform::TextStream {
 public:
  Stream(FaultyFiles& files, StringView path, std::unique_ptr<platform::TextStream> stream)
      : files_(files), path_(path), stream_(std::move(stream)) {}

  bool Write(StringView text) override {
    if (!files_.Fails("TextStream.Write")) return stream_->Write(text);
    static_cast<void>(stream_->Write(text.substr(0, text.size() / 2)));
    return false;
  }

  bool WriteAscii(std::string_view text) override {
    if (!files_.Fails("TextStream.Write")) return stream_->WriteAscii(text);
    static_cast<void>(stream_->WriteAscii(text.substr(0, text.size() / 2)));
    return false;
  }

  bool Close() override {
    const bool fails = files_.Fails("TextStream.Close");
    if (!stream_->Close() || fails) return false;
    files_.logs_.Written(path_);
    return true;
  }

 private:
  FaultyFiles& files_;
  String path_;
  std::unique_ptr<platform::TextStream> stream_;
};

FaultyFiles::FaultyFiles(platform::memory::FileSystem& files, FaultPlan& plan, WrittenLogs& logs)
    : files_(files), plan_(plan), logs_(logs) {
  files_.OnStep([this] { return plan_.NextDiskStep(); });
}

bool FaultyFiles::FolderExists(StringView path) {
  return !Fails("FolderExists") && files_.FolderExists(path);
}

bool FaultyFiles::FileExists(StringView path) {
  return Fails("FileExists") || files_.FileExists(path);
}

std::vector<String> FaultyFiles::FileNames(StringView stem) {
  return Fails("FileNames") ? std::vector<String>() : files_.FileNames(stem);
}

bool FaultyFiles::CreateFolder(StringView path) {
  return !Fails("CreateFolder") && files_.CreateFolder(path);
}

std::unique_ptr<platform::TextStream> FaultyFiles::CreateTextFile(StringView path, bool overwrite,
                                                                  bool unicode) {
  if (Fails("CreateTextFile")) return nullptr;
  auto stream = files_.CreateTextFile(path, overwrite, unicode);
  if (stream == nullptr) return nullptr;
  return std::make_unique<Stream>(*this, path, std::move(stream));
}

bool FaultyFiles::DeleteFile(StringView path, bool force) {
  return !Fails("DeleteFile") && files_.DeleteFile(path, force);
}

std::optional<platform::BinaryRead> FaultyFiles::ReadBinary(StringView path, std::size_t size) {
  if (Fails("ReadBinary")) return std::nullopt;
  auto read = files_.ReadBinary(path, size);
  if (read && Fails("ReadBinary's close")) read->closed = false;
  return read;
}

bool FaultyFiles::WriteBinary(StringView path, std::span<const std::byte> bytes) {
  return !Fails("WriteBinary") && files_.WriteBinary(path, bytes);
}

std::optional<std::int32_t> FaultyFiles::Attributes(StringView path) {
  if (Fails("Attributes")) return std::nullopt;
  return files_.Attributes(path);
}

}  // namespace tolvane::faults
