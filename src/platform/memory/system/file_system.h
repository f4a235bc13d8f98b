#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/code_page.h"
#include "platform/file_services.h"
#include "platform/file_steps.h"

namespace tolvane::platform::memory {

// Attribute values.
constexpr std::int32_t kReadOnly = 1;
constexpr std::int32_t kPlainFolder = 16;
constexpr std::int32_t kPlainFile = 32;

/// A disk in memory that behaves as one under Windows: names in any case, blanks and periods
/// dropped at the end of a path, paths of at most 259 characters, 247 for new folders. What is
/// written is safe from a power cut only once it is flushed; names are at once.
class FileSystem : public platform::FileServices, public platform::FileSteps {
 public:
  /// `code_page` is what text files are written in.
  explicit FileSystem(platform::CodePage& code_page) : code_page_(code_page) {}

  // What lies on the disk.
  void AddFolder(StringView path);  // with the folders above it
  void AddFile(StringView path, std::string_view bytes, std::int32_t attributes = kPlainFile);
  void Remove(StringView path);  // a folder with all that is in it
  [[nodiscard]] std::optional<std::string> Bytes(StringView path) const;
  /// Paths of all files below `folder`, in the order of their names in capitals.
  [[nodiscard]] std::vector<String> Files(StringView folder) const;

  // Faults. Each stays until it is taken back.
  void SetAttributes(StringView path, std::int32_t attributes);
  /// Another program holds the file: it cannot be read, written or deleted.
  void Lock(StringView path, bool locked);
  /// Nothing can be made in the folder.
  void Protect(StringView folder, bool is_protected);
  /// Files can grow by `bytes` in all, then writing fails.
  void FreeSpace(std::size_t bytes) { free_space_ = bytes; }
  /// Files are written and read, but closing them fails.
  void FailClose(bool fail) { fail_close_ = fail; }

  /// Another program reads the file for `ms`: meanwhile it can be written, but not replaced, moved
  /// or deleted.
  void Hold(StringView path, std::int32_t ms);
  /// A scanner does so with each file that was written.
  void ScanWrittenFiles(std::int32_t ms) { scan_ = ms; }
  /// Of the steps of FileSteps from now on, the one of this number, from 0, goes so. A write that
  /// fails has done a half.
  void Fault(std::int32_t number, FileStep outcome);
  /// Asked at each step of FileSteps, and at each reading of a file, how it goes.
  void OnStep(std::function<FileStep()> outcome) { on_step_ = std::move(outcome); }
  /// A disk without a journal: a power cut in a move leaves neither name.
  void LoseNamesInAMove() { moves_whole_ = false; }
  /// The power goes with the step of this number, from 0. Of what was not flushed a part is lost.
  void CutPowerAt(std::int32_t number);
  [[nodiscard]] bool PowerIsOff() const { return is_off_; }
  /// For how many ms the program stood so far.
  [[nodiscard]] std::int64_t Paused() const { return now_; }
  void PowerOn();

  /// Puts a text file in the place of the one at `path`, if there is one.
  [[nodiscard]] bool Replace(StringView path, StringView text);

  /// Pieces of text files written so far.
  [[nodiscard]] std::int32_t TextWrites() const { return text_writes_; }

  [[nodiscard]] bool FolderExists(StringView path) override;
  [[nodiscard]] bool FileExists(StringView path) override;
  [[nodiscard]] std::vector<String> FileNames(StringView stem) override;
  [[nodiscard]] bool CreateFolder(StringView path) override;
  [[nodiscard]] std::unique_ptr<TextStream> CreateTextFile(StringView path, bool overwrite,
                                                           bool unicode) override;
  bool DeleteFile(StringView path, bool force) override;
  [[nodiscard]] std::optional<BinaryRead> ReadBinary(StringView path, std::size_t size) override;
  [[nodiscard]] bool WriteBinary(StringView path, std::span<const std::byte> bytes) override;
  [[nodiscard]] std::optional<std::int32_t> Attributes(StringView path) override;

  [[nodiscard]] Opened Create(StringView path) override;
  [[nodiscard]] Opened Open(StringView path) override;
  [[nodiscard]] FileStep Move(StringView from, StringView to) override;
  [[nodiscard]] bool MovesWhole(StringView) override { return moves_whole_; }
  [[nodiscard]] FileStep Delete(StringView path) override;
  [[nodiscard]] bool Exists(StringView path) override { return Find(path) != nullptr; }
  [[nodiscard]] bool IsReadOnly(StringView path) override;
  [[nodiscard]] std::optional<BinaryRead> Read(StringView path, std::size_t size) override;
  void Pause(std::int32_t ms) override { now_ += ms; }

 private:
  struct Entry {
    String path = {};  // as it was made
    bool is_folder = false;
    std::int32_t attributes = 0;
    std::string bytes = {};
    std::string flushed = {};  // what a power cut leaves for sure
    std::int64_t held_until = 0;
    bool locked = false;
    bool is_protected = false;
  };
  class Stream;
  class Output;

  [[nodiscard]] Entry* Find(StringView path);
  [[nodiscard]] Entry* FindFile(StringView path);
  [[nodiscard]] Entry* FindFolder(StringView path);
  /// The file to be written, made if it is missing; null when that is not possible.
  [[nodiscard]] Entry* OpenForWriting(StringView path);
  /// True when a missing right, or another program, is all that keeps a file from being written.
  [[nodiscard]] bool IsDenied(StringView path);
  [[nodiscard]] bool IsHeld(const Entry& file) const { return file.held_until > now_; }
  [[nodiscard]] Opened OpenOutput(StringView path, bool emptied);
  /// How the next step goes, as far as a test has its say.
  [[nodiscard]] FileStep NextStep();
  void Resize(Entry& file, std::size_t size);
  void GiveSpace(std::size_t bytes);
  /// Puts `bytes` at `position` as far as there is space for them.
  [[nodiscard]] bool WriteAt(Entry& file, std::size_t position, std::string_view bytes);

  platform::CodePage& code_page_;
  std::map<String, Entry> entries_;  // by path in capitals, without the backslash at the end
  std::size_t free_space_ = std::numeric_limits<std::size_t>::max();
  bool fail_close_ = false;
  std::int32_t text_writes_ = 0;
  std::int32_t scan_ = 0;  // ms
  std::int64_t now_ = 0;   // ms
  std::int32_t step_ = 0;
  std::map<std::int32_t, FileStep> faults_;  // by their steps
  std::function<FileStep()> on_step_;
  std::optional<std::int32_t> cut_at_;
  bool is_off_ = false;
  bool moves_whole_ = true;
};

}  // namespace tolvane::platform::memory
