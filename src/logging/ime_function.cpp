#include "logging/ime_function.h"

#include "logging/log_naming.h"

namespace tolvane::IME_Function {

namespace {

using FileFormat = platform::RichTextView::FileFormat;

constexpr std::int32_t kSnapshotRichText = 1;  // t_SaveFormat
constexpr std::int32_t kSnapshotPlainText = 2;

StringView SnapshotExtension(std::int32_t format) {
  if (format == kSnapshotRichText) return u".rtf";
  return format == kSnapshotPlainText ? StringView(u".txt") : StringView();
}

/// Any other format saves nothing and counts as success.
bool Save(platform::RichTextView& RTB_MainView, StringView path, std::int32_t format) {
  if (format == kSnapshotRichText) return RTB_MainView.SaveFile(path, FileFormat::kRichText);
  if (format == kSnapshotPlainText) return RTB_MainView.SaveFile(path, FileFormat::kPlainText);
  return true;
}

}  // namespace

void SaveSnapshotFile(ELM327_Info& device, const platform::Platform& platform,
                      platform::RichTextView& RTB_MainView) {
  const StringView title = device.Application_title2;
  const String folder = BaseFolder(device.t_SaveFilePath_mode, device.t_SaveFilePath,
                                   device.ExecutableFolder(), platform.files, platform.folders);
  String stem = folder + u"\\KS";
  stem.append(DateHourText(platform.wall_clock.Now())).append(u"-");
  // Each snapshot searches from 1. Unlike a log, it does not overwrite number 1000.
  const NumberedPath found =
      FindFreePath(platform.files, stem, SnapshotExtension(device.t_SaveFormat), 1, nullptr);
  if (found.number >= kFileNumber_MAX) {
    platform.message_box.Critical(u"ファイルがいっぱいです", title);
  } else if (Save(RTB_MainView, found.path, device.t_SaveFormat)) {
    platform.message_box.Plain(u"保存しました", title);
  } else {
    platform.message_box.Critical(u"スナップショットを保存できませんでした。", title);
  }
}

}  // namespace tolvane::IME_Function
