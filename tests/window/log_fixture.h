#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/window/dialog_fixture.h"

namespace tolvane::window {

/// Files of a folder whose names begin with `prefix` and end with `extension`, in the order of
/// their writing: the names have the hour and then a number.
[[nodiscard]] std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& folder,
                                                         std::wstring_view prefix,
                                                         std::wstring_view extension);

/// Empty when the file cannot be read.
[[nodiscard]] std::string FileBytes(const std::filesystem::path& file);

/// A file name such as "KL26112023-001.csv", of the present hour or `hours_ahead` hours later.
[[nodiscard]] std::wstring NumberedName(const wchar_t* prefix, int hours_ahead, int number,
                                        const wchar_t* extension);
/// Takes the numbers 1 to 999 of this hour and the next with empty files.
void FillNumbers(const std::filesystem::path& folder, const wchar_t* prefix,
                 const wchar_t* extension);

/// A log whose date, where its shape is that of a date and time or, as at midnight, of a date
/// alone, is replaced by "DATE".
[[nodiscard]] std::string WithoutDate(std::string log);

/// The text before the records of a log without its date, in code page 932; the comment too.
[[nodiscard]] std::string CsvHead11(std::string_view comment);
[[nodiscard]] std::string CsvHead29(std::string_view comment);

/// The comment of a fresh installation in code page 932.
inline constexpr std::string_view kFirstComment =
    "\x82\x62\x82\x60\x82\x6d\x8e\xf3\x90\x4d\x83\x8d\x83\x4f";

/// A record's first column: at least ten characters.
[[nodiscard]] std::string PaddedTime(long long time);
/// At least `width` digits in capitals.
[[nodiscard]] std::string Hex(unsigned long long number, std::size_t width);
/// The eight bytes of the load generator's frame `number`, each pair of digits with `between`
/// behind it but the last.
[[nodiscard]] std::string CounterBytes(unsigned long long number, std::string_view between);

/// A test with the real program that writes logs.
class LogRun : public OpenedWindows {
 protected:
  /// Starts the program on one CANUSB adapter; `ini` is the rest of the bench file.
  void StartOn(std::string_view ini);
  /// Writes a candump recording and starts the program on it.
  void StartOnRecording(std::string_view lines);

  /// Waits until the page shows a text.
  [[nodiscard]] bool WaitForShown(const std::wstring& text) const;
  /// One run, from the connect until the page shows a text, and its end.
  void RunUntilShown(const std::wstring& text);

  /// Opens the log settings, which a test then changes and closes by PressOk.
  DrivenWindow OpenLogSettings();

  [[nodiscard]] std::vector<std::filesystem::path> Logs(
      std::wstring_view extension = L".csv") const {
    return FilesOf(folder_.Path(), L"KL", extension);
  }
};

/// A new folder next to the program's, removed with the object.
class ScratchFolder {
 public:
  explicit ScratchFolder(std::filesystem::path path);
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// Has the user's desktop lie in a folder of the test's own while the object lives, since the real
/// one may be that of the person at the machine.
class DesktopElsewhere {
 public:
  explicit DesktopElsewhere(std::filesystem::path path);
  ~DesktopElsewhere();
  DesktopElsewhere(const DesktopElsewhere&) = delete;
  DesktopElsewhere& operator=(const DesktopElsewhere&) = delete;
  [[nodiscard]] const std::filesystem::path& Path() const { return folder_.Path(); }

 private:
  ScratchFolder folder_;
  std::wstring before_;  // what the registry held, empty for nothing
};

}  // namespace tolvane::window
