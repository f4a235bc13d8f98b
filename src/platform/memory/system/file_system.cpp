#include "platform/memory/system/file_system.h"

#include <algorithm>
#include <utility>

#include "platform/ascii_run.h"
#include "platform/file_replacing.h"
#include "platform/memory/system/windows_path.h"

namespace tolvane::platform::memory {

namespace {

constexpr std::size_t kNewFolder_MAX = 247;

/// The path in a form for comparing: names with other capitals are the same.
String Key(StringView path) {
  String key = AsWindowsTakesIt(path);
  for (char16_t& character : key) {
    if (character >= u'a' && character <= u'z') {
      character = static_cast<char16_t>(character - u'a' + u'A');
    }
  }
  return key;
}

}  // namespace

class FileSystem::Stream final : public TextStream {
 public:
  Stream(FileSystem& files, StringView path) : files_(files), path_(path) {}

  bool Write(StringView text) override {
    std::string bytes;
    files_.code_page_.Encode(text, bytes);
    return Append(bytes);
  }

  /// Nothing of it where a byte is none of ASCII.
  bool WriteAscii(std::string_view text) override {
    return std::ranges::all_of(
               text, [](char byte) { return IsAscii(static_cast<unsigned char>(byte)); }) &&
           Append(text);
  }

  bool Close() override { return files_.FindFile(path_) != nullptr && !files_.fail_close_; }

 private:
  bool Append(std::string_view bytes) {
    ++files_.text_writes_;
    Entry* const file = files_.FindFile(path_);
    return file != nullptr && files_.WriteAt(*file, file->bytes.size(), bytes);
  }

  FileSystem& files_;
  String path_;
};

FileSystem::Entry* FileSystem::Find(StringView path) {
  const String key = Key(path);
  if (key.size() > kPath_MAX || is_off_) return nullptr;
  const auto found = entries_.find(key);
  return found == entries_.end() ? nullptr : &found->second;
}

FileSystem::Entry* FileSystem::FindFile(StringView path) {
  Entry* const entry = Find(path);
  return entry != nullptr && !entry->is_folder ? entry : nullptr;
}

FileSystem::Entry* FileSystem::FindFolder(StringView path) {
  Entry* const entry = Find(path);
  return entry != nullptr && entry->is_folder ? entry : nullptr;
}

void FileSystem::AddFolder(StringView path) {
  const String taken = AsWindowsTakesIt(path);
  if (taken.empty() || FindFolder(taken) != nullptr) return;
  AddFolder(FolderOf(taken));
  entries_[Key(taken)] = {.path = taken, .is_folder = true, .attributes = kPlainFolder};
}

void FileSystem::AddFile(StringView path, std::string_view bytes, std::int32_t attributes) {
  const String taken = AsWindowsTakesIt(path);
  AddFolder(FolderOf(taken));
  entries_[Key(taken)] = {.path = taken,
                          .attributes = attributes,
                          .bytes = std::string(bytes),
                          .flushed = std::string(bytes)};
}

void FileSystem::Remove(StringView path) {
  const String key = Key(path);
  std::erase_if(entries_, [&](const auto& entry) {
    return entry.first == key || entry.first.starts_with(key + u'\\');
  });
}

std::optional<std::string> FileSystem::Bytes(StringView path) const {
  const auto found = entries_.find(Key(path));
  if (found == entries_.end() || found->second.is_folder) return {};
  return found->second.bytes;
}

std::vector<String> FileSystem::Files(StringView folder) const {
  const String below = Key(folder) + u'\\';
  std::vector<String> files;
  for (const auto& [key, entry] : entries_) {
    if (!entry.is_folder && key.starts_with(below)) files.push_back(entry.path);
  }
  return files;
}

std::vector<String> FileSystem::FileNames(StringView stem) {
  const std::size_t folder = stem.rfind(u'\\');
  if (folder == StringView::npos) return {};
  const String below = Key(stem.substr(0, folder)) + u'\\';
  const String begin = below + Key(stem.substr(folder + 1));
  std::vector<String> names;
  for (const auto& [key, entry] : entries_) {
    const bool is_deeper = key.find(u'\\', below.size()) != String::npos;
    if (entry.is_folder || is_deeper || !key.starts_with(begin)) continue;
    names.push_back(entry.path.substr(entry.path.rfind(u'\\') + 1));
  }
  return names;
}

void FileSystem::SetAttributes(StringView path, std::int32_t attributes) {
  if (Entry* const entry = Find(path)) entry->attributes = attributes;
}

void FileSystem::Lock(StringView path, bool locked) {
  if (Entry* const file = FindFile(path)) file->locked = locked;
}

void FileSystem::Protect(StringView folder, bool is_protected) {
  if (Entry* const entry = FindFolder(folder)) entry->is_protected = is_protected;
}

bool FileSystem::FolderExists(StringView path) { return FindFolder(path) != nullptr; }

bool FileSystem::FileExists(StringView path) { return FindFile(path) != nullptr; }

bool FileSystem::CreateFolder(StringView path) {
  const String taken = AsWindowsTakesIt(path);
  const Entry* const parent = FindFolder(FolderOf(taken));
  if (taken.size() > kNewFolder_MAX || !CanBeNamed(taken) || parent == nullptr ||
      parent->is_protected || Find(taken) != nullptr) {
    return false;
  }
  AddFolder(taken);
  return true;
}

FileSystem::Entry* FileSystem::OpenForWriting(StringView path) {
  if (Entry* const entry = Find(path)) {
    const bool refused = entry->is_folder || entry->locked || (entry->attributes & kReadOnly) != 0;
    return refused ? nullptr : entry;
  }
  const String taken = AsWindowsTakesIt(path);
  const Entry* const parent = FindFolder(FolderOf(taken));
  const bool refused = taken.size() > kPath_MAX || !CanBeNamed(taken);
  if (refused || parent == nullptr || parent->is_protected) return nullptr;
  AddFile(path, {});
  return FindFile(path);
}

bool FileSystem::WriteAt(Entry& file, std::size_t position, std::string_view bytes) {
  const std::size_t inside = std::min(bytes.size(), file.bytes.size() - position);
  const std::size_t grown = std::min(bytes.size() - inside, free_space_);
  const std::size_t size = file.bytes.size() + grown;
  Resize(file, size);
  file.bytes.replace(position, inside + grown, bytes.substr(0, inside + grown));
  return inside + grown == bytes.size();
}

void FileSystem::GiveSpace(std::size_t bytes) {
  free_space_ += std::min(bytes, std::numeric_limits<std::size_t>::max() - free_space_);
}

void FileSystem::Resize(Entry& file, std::size_t size) {
  if (size > file.bytes.size()) {
    free_space_ -= size - file.bytes.size();
  } else {
    GiveSpace(file.bytes.size() - size);
  }
  file.bytes.resize(size);
}

bool FileSystem::Replace(StringView path, StringView text) {
  std::string bytes;
  code_page_.Encode(text, bytes);
  return ReplaceWhole(*this, path, std::as_bytes(std::span(bytes)));
}

std::unique_ptr<TextStream> FileSystem::CreateTextFile(StringView path, bool overwrite,
                                                       bool unicode) {
  if (unicode || (!overwrite && Find(path) != nullptr)) return nullptr;
  Entry* const file = OpenForWriting(path);
  if (file == nullptr) return nullptr;
  Resize(*file, 0);
  return std::make_unique<Stream>(*this, path);
}

bool FileSystem::DeleteFile(StringView path, bool force) {
  const Entry* const file = FindFile(path);
  if (file == nullptr || file->locked || IsHeld(*file)) return false;
  if ((file->attributes & kReadOnly) != 0 && !force) return false;
  GiveSpace(file->bytes.size());
  entries_.erase(Key(path));
  return true;
}

std::optional<BinaryRead> FileSystem::ReadBinary(StringView path, std::size_t size) {
  return ReadReplaced(*this, path, size);
}

bool FileSystem::WriteBinary(StringView path, std::span<const std::byte> bytes) {
  return ReplaceStart(*this, path, bytes);
}

std::optional<std::int32_t> FileSystem::Attributes(StringView path) {
  const Entry* const entry = Find(path);
  if (entry == nullptr) return {};
  return entry->attributes;
}

}  // namespace tolvane::platform::memory
