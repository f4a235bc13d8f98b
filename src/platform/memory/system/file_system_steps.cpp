// The single steps of writing a file, and all that can happen on the way.
#include <algorithm>
#include <utility>

#include "platform/memory/system/file_system.h"
#include "platform/memory/system/windows_path.h"

namespace tolvane::platform::memory {

class FileSystem::Output final : public OutputFile {
 public:
  Output(FileSystem& files, StringView path) : files_(files), path_(path) {}

  FileStep Write(std::span<const std::byte> bytes) override {
    Entry* const file = files_.FindFile(path_);
    const FileStep step = files_.NextStep();
    if (file == nullptr) return FileStep::kFailed;
    std::string_view narrow(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (step != FileStep::kDone) narrow = narrow.substr(0, narrow.size() / 2);
    const bool fitted = files_.WriteAt(*file, position_, narrow);
    position_ += narrow.size();
    return fitted ? step : FileStep::kFailed;
  }

  FileStep EndHere() override {
    return OnFile([this](Entry& file) { files_.Resize(file, position_); });
  }

  FileStep Flush() override {
    return OnFile([](Entry& file) { file.flushed = file.bytes; });
  }

  FileStep Close() override {
    const FileStep step =
        OnFile([this](Entry& file) { file.held_until = files_.now_ + files_.scan_; });
    return files_.fail_close_ ? FileStep::kFailed : step;
  }

 private:
  template <typename Change>
  FileStep OnFile(Change change) {
    Entry* const file = files_.FindFile(path_);
    const FileStep step = files_.NextStep();
    if (file == nullptr) return FileStep::kFailed;
    if (step == FileStep::kDone) change(*file);
    return step;
  }

  FileSystem& files_;
  String path_;
  std::size_t position_ = 0;
};

void FileSystem::Hold(StringView path, std::int32_t ms) {
  if (Entry* const file = FindFile(path)) file->held_until = now_ + ms;
}

void FileSystem::Fault(std::int32_t number, FileStep outcome) { faults_[step_ + number] = outcome; }

void FileSystem::CutPowerAt(std::int32_t number) { cut_at_ = step_ + number; }

void FileSystem::PowerOn() {
  is_off_ = false;
  cut_at_.reset();
  for (auto& [key, entry] : entries_) {
    entry.locked = false;
    entry.held_until = 0;
    if (entry.bytes == entry.flushed) continue;
    // The first half of what was written came to the disk, and no more.
    const std::size_t half = entry.bytes.size() / 2;
    entry.bytes.resize(half);
    if (entry.flushed.size() > half) entry.bytes += entry.flushed.substr(half);
    entry.flushed = entry.bytes;
  }
}

FileStep FileSystem::NextStep() {
  if (is_off_) return FileStep::kFailed;
  const std::int32_t number = step_++;
  if (cut_at_ == number) {
    is_off_ = true;
    return FileStep::kFailed;
  }
  const auto fault = faults_.find(number);
  if (fault != faults_.end()) return fault->second;
  return on_step_ ? on_step_() : FileStep::kDone;
}

bool FileSystem::IsDenied(StringView path) {
  if (const Entry* const entry = Find(path)) {
    return entry->is_folder || entry->locked || (entry->attributes & kReadOnly) != 0;
  }
  const String taken = AsWindowsTakesIt(path);
  const Entry* const parent = FindFolder(FolderOf(taken));
  return parent != nullptr && parent->is_protected;
}

FileSteps::Opened FileSystem::OpenOutput(StringView path, bool emptied) {
  const FileStep step = NextStep();
  if (step != FileStep::kDone) return {.step = step};
  if (IsDenied(path)) return {.step = FileStep::kBusy};
  Entry* const file = OpenForWriting(path);
  if (file == nullptr) return {};
  if (emptied) Resize(*file, 0);
  return {.step = FileStep::kDone, .file = std::make_unique<Output>(*this, path)};
}

FileSteps::Opened FileSystem::Create(StringView path) { return OpenOutput(path, true); }

FileSteps::Opened FileSystem::Open(StringView path) { return OpenOutput(path, false); }

FileStep FileSystem::Move(StringView from, StringView to) {
  const bool was_off = is_off_;
  const FileStep step = NextStep();
  if (is_off_ && !was_off && !moves_whole_) {
    Remove(from);
    Remove(to);
  }
  if (step != FileStep::kDone) return step;
  Entry* const source = FindFile(from);
  if (source == nullptr) return FileStep::kFailed;
  const Entry* const target = FindFile(to);
  const bool is_held = source->locked || IsHeld(*source) || (target != nullptr && IsHeld(*target));
  if (is_held || IsDenied(to)) return FileStep::kBusy;
  if (target == nullptr && OpenForWriting(to) == nullptr) return FileStep::kFailed;
  Entry& moved = *FindFile(to);
  GiveSpace(moved.bytes.size());
  moved.bytes = std::move(source->bytes);
  moved.flushed = std::move(source->flushed);
  moved.attributes = source->attributes;
  Remove(from);
  return FileStep::kDone;
}

FileStep FileSystem::Delete(StringView path) {
  const FileStep step = NextStep();
  if (step != FileStep::kDone) return step;
  if (!FileExists(path)) return FileStep::kDone;
  return DeleteFile(path, false) ? FileStep::kDone : FileStep::kBusy;
}

bool FileSystem::IsReadOnly(StringView path) {
  const Entry* const file = FindFile(path);
  return file != nullptr && (file->attributes & kReadOnly) != 0;
}

std::optional<BinaryRead> FileSystem::Read(StringView path, std::size_t size) {
  const Entry* const file = FindFile(path);
  if (file == nullptr || file->locked) return {};
  if (on_step_ && on_step_() != FileStep::kDone) return {};
  const auto bytes = std::as_bytes(std::span(file->bytes));
  const auto wanted = bytes.first(std::min(size, bytes.size()));
  return BinaryRead{.bytes = {wanted.begin(), wanted.end()}, .closed = !fail_close_};
}

}  // namespace tolvane::platform::memory
