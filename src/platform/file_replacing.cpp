#include "platform/file_replacing.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace tolvane::platform {

namespace {

constexpr std::int32_t kPatience = 1000;  // ms
constexpr std::int32_t kPause = 20;       // ms
constexpr std::size_t kWholeFile = std::numeric_limits<std::size_t>::max();

String Beside(StringView path, char16_t last) {
  String name(path);
  if (!name.empty()) name.back() = last;
  return name;
}

FileStep WriteWhole(const FileSteps::Opened& opened, std::span<const std::byte> bytes) {
  if (opened.step != FileStep::kDone) return opened.step;
  OutputFile& file = *opened.file;
  FileStep step = file.Write(bytes);
  if (step == FileStep::kDone) step = file.EndHere();
  if (step == FileStep::kDone) step = file.Flush();
  const FileStep closed = file.Close();
  return step == FileStep::kDone ? closed : step;
}

class Replacing {
 public:
  Replacing(FileSteps& steps, StringView path)
      : steps_(steps), path_(path), fresh_(Beside(path, u'~')), mark_(Beside(path, u'!')) {}

  /// Where the whole content is, once what a power cut left is cleared up.
  [[nodiscard]] const String& TakeUp();
  /// The old content; empty when there is a file that cannot be read.
  [[nodiscard]] std::optional<std::vector<std::byte>> Old();
  /// `fits`: the file has the room for it already.
  [[nodiscard]] bool Run(std::span<const std::byte> bytes, bool fits);

 private:
  template <typename Step>
  FileStep Patiently(Step step);
  FileStep InPlace(std::span<const std::byte> bytes);
  bool InPlaceWithNet(std::span<const std::byte> bytes);
  void RemoveNet();

  FileSteps& steps_;
  String path_;
  String fresh_;
  String mark_;
  std::int32_t waited_ = 0;  // ms
};

template <typename Step>
FileStep Replacing::Patiently(Step step) {
  FileStep outcome = step();
  for (; outcome == FileStep::kBusy && waited_ < kPatience; waited_ += kPause) {
    steps_.Pause(kPause);
    outcome = step();
  }
  return outcome;
}

/// The mark goes first: without it nobody takes the fresh file for whole.
void Replacing::RemoveNet() {
  if (Patiently([&] { return steps_.Delete(mark_); }) != FileStep::kDone) return;
  static_cast<void>(Patiently([&] { return steps_.Delete(fresh_); }));
}

FileStep Replacing::InPlace(std::span<const std::byte> bytes) {
  return Patiently([&] { return WriteWhole(steps_.Open(path_), bytes); });
}

const String& Replacing::TakeUp() {
  if (!steps_.Exists(mark_)) return path_;
  if (steps_.Exists(fresh_)) {
    const auto whole = steps_.Read(fresh_, kWholeFile);
    FileStep step = whole ? InPlace(whole->bytes) : FileStep::kFailed;
    // A full disk may have no room for both.
    if (step != FileStep::kDone) step = Patiently([&] { return steps_.Move(fresh_, path_); });
    if (step != FileStep::kDone) return fresh_;
  }
  RemoveNet();
  return path_;
}

std::optional<std::vector<std::byte>> Replacing::Old() {
  if (!steps_.Exists(path_)) return std::vector<std::byte>();
  std::optional<BinaryRead> read;
  static_cast<void>(Patiently([&] {
    read = steps_.Read(path_, kWholeFile);
    return read ? FileStep::kDone : FileStep::kBusy;
  }));
  if (!read) return std::nullopt;
  return std::move(read->bytes);
}

bool Replacing::InPlaceWithNet(std::span<const std::byte> bytes) {
  const FileStep marked = Patiently([&] { return WriteWhole(steps_.Create(mark_), {}); });
  if (marked != FileStep::kDone) {
    RemoveNet();
    return false;
  }
  FileSteps::Opened opened;
  static_cast<void>(Patiently([&] {
    opened = steps_.Open(path_);
    return opened.step;
  }));
  const FileStep step = WriteWhole(opened, bytes);
  // A file half written is left to the net.
  if (opened.step != FileStep::kDone || step == FileStep::kDone) RemoveNet();
  return step == FileStep::kDone;
}

bool Replacing::Run(std::span<const std::byte> bytes, bool fits) {
  if (path_.empty() || steps_.IsReadOnly(path_)) return false;
  static_cast<void>(TakeUp());
  if (steps_.Exists(mark_)) return false;  // it would call the next fresh file whole too early
  const FileStep fresh = Patiently([&] { return WriteWhole(steps_.Create(fresh_), bytes); });
  if (fresh != FileStep::kDone) {
    static_cast<void>(steps_.Delete(fresh_));
    return (fresh == FileStep::kBusy || fits) && InPlace(bytes) == FileStep::kDone;
  }
  if (!steps_.MovesWhole(path_)) return InPlaceWithNet(bytes);
  const FileStep moved = Patiently([&] { return steps_.Move(fresh_, path_); });
  if (moved == FileStep::kBusy) return InPlaceWithNet(bytes);
  if (moved == FileStep::kFailed) static_cast<void>(steps_.Delete(fresh_));
  return moved == FileStep::kDone;
}

}  // namespace

bool ReplaceWhole(FileSteps& steps, StringView path, std::span<const std::byte> bytes) {
  return Replacing(steps, path).Run(bytes, false);
}

bool ReplaceStart(FileSteps& steps, StringView path, std::span<const std::byte> bytes) {
  Replacing replacing(steps, path);
  static_cast<void>(replacing.TakeUp());
  auto content = replacing.Old();
  if (!content) return false;
  const bool fits = content->size() >= bytes.size();
  if (!fits) content->resize(bytes.size());
  std::ranges::copy(bytes, content->begin());
  return replacing.Run(*content, fits);
}

std::optional<BinaryRead> ReadReplaced(FileSteps& steps, StringView path, std::size_t size) {
  return steps.Read(Replacing(steps, path).TakeUp(), size);
}

}  // namespace tolvane::platform
