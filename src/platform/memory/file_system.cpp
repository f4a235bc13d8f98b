#include "platform/memory/file_system.h"

#include <algorithm>
#include <utility>

namespace tolvane::platform::memory {

namespace {

constexpr std::size_t kPath_MAX = 259;
constexpr std::size_t kNewFolder_MAX = 247;

StringView WithoutEndingBackslash(StringView path) {
  while (path.ends_with(u'\\')) path.remove_suffix(1);
  return path;
}

String Key(StringView path) {
  String key(WithoutEndingBackslash(path));
  for (char16_t& character : key) {
    if (character >= u'a' && character <= u'z') {
      character = static_cast<char16_t>(character - u'a' + u'A');
    }
  }
  return key;
}

StringView Parent(StringView path) {
  path = WithoutEndingBackslash(path);
  const std::size_t backslash = path.rfind(u'\\');
  return backslash == StringView::npos ? StringView() : path.substr(0, backslash);
}

}  // namespace

class FileSystem::Stream final : public TextStream {
 public:
  Stream(FileSystem& files, StringView path) : files_(files), path_(path) {}

  bool Write(StringView text) override {
    ++files_.text_writes_;
    Entry* const file = files_.FindFile(path_);
    std::string bytes;
    files_.code_page_.Encode(text, bytes);
    return file != nullptr && files_.WriteAt(*file, file->bytes.size(), bytes);
  }

  bool Close() override { return files_.FindFile(path_) != nullptr && !files_.fail_close_; }

 private:
  FileSystem& files_;
  String path_;
};

FileSystem::Entry* FileSystem::Find(StringView path) {
  if (path.size() > kPath_MAX) return nullptr;
  const auto found = entries_.find(Key(path));
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
  path = WithoutEndingBackslash(path);
  if (path.empty() || FindFolder(path) != nullptr) return;
  AddFolder(Parent(path));
  entries_[Key(path)] = {.path = String(path), .is_folder = true, .attributes = kPlainFolder};
}

void FileSystem::AddFile(StringView path, std::string_view bytes, std::int32_t attributes) {
  AddFolder(Parent(path));
  entries_[Key(path)] = {
      .path = String(path), .attributes = attributes, .bytes = std::string(bytes)};
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
  path = WithoutEndingBackslash(path);
  Entry* const parent = FindFolder(Parent(path));
  if (path.size() > kNewFolder_MAX || parent == nullptr || parent->is_protected ||
      Find(path) != nullptr) {
    return false;
  }
  AddFolder(path);
  return true;
}

FileSystem::Entry* FileSystem::OpenForWriting(StringView path) {
  if (Entry* const entry = Find(path)) {
    const bool refused = entry->is_folder || entry->locked || (entry->attributes & kReadOnly) != 0;
    return refused ? nullptr : entry;
  }
  Entry* const parent = FindFolder(Parent(path));
  if (path.size() > kPath_MAX || parent == nullptr || parent->is_protected) return nullptr;
  AddFile(path, {});
  return FindFile(path);
}

bool FileSystem::WriteAt(Entry& file, std::size_t position, std::string_view bytes) {
  const std::size_t inside = std::min(bytes.size(), file.bytes.size() - position);
  const std::size_t grown = std::min(bytes.size() - inside, free_space_);
  free_space_ -= grown;
  file.bytes.replace(position, inside, bytes.substr(0, inside + grown));
  return inside + grown == bytes.size();
}

bool FileSystem::Replace(StringView path, StringView text) {
  std::string bytes;
  code_page_.Encode(text, bytes);
  if (bytes.size() > free_space_ || fail_close_) return false;
  Entry* const file = OpenForWriting(path);
  if (file == nullptr) return false;
  free_space_ -= bytes.size();
  file->bytes = std::move(bytes);
  return true;
}

std::unique_ptr<TextStream> FileSystem::CreateTextFile(StringView path, bool overwrite,
                                                       bool unicode) {
  if (unicode || (!overwrite && Find(path) != nullptr)) return nullptr;
  Entry* const file = OpenForWriting(path);
  if (file == nullptr) return nullptr;
  file->bytes.clear();
  return std::make_unique<Stream>(*this, path);
}

bool FileSystem::DeleteFile(StringView path, bool force) {
  const Entry* const file = FindFile(path);
  if (file == nullptr || file->locked) return false;
  if ((file->attributes & kReadOnly) != 0 && !force) return false;
  entries_.erase(Key(path));
  return true;
}

std::optional<BinaryRead> FileSystem::ReadBinary(StringView path, std::size_t size) {
  const Entry* const file = FindFile(path);
  if (file == nullptr || file->locked) return {};
  BinaryRead read{.bytes = {}, .closed = !fail_close_};
  for (const char byte : std::string_view(file->bytes).substr(0, size)) {
    read.bytes.push_back(static_cast<std::byte>(byte));
  }
  return read;
}

bool FileSystem::WriteBinary(StringView path, std::span<const std::byte> bytes) {
  Entry* const file = OpenForWriting(path);
  if (file == nullptr) return false;
  std::string narrow;
  for (const std::byte byte : bytes) narrow += static_cast<char>(byte);
  return WriteAt(*file, 0, narrow) && !fail_close_;
}

std::optional<std::int32_t> FileSystem::Attributes(StringView path) {
  const Entry* const entry = Find(path);
  if (entry == nullptr) return {};
  return entry->attributes;
}

}  // namespace tolvane::platform::memory
