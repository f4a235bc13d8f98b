#include "logging/excel_outputdb.h"
#include "logging/log_naming.h"
#include "logging/spreadsheet_server.h"
#include "run/replaced_text.h"

namespace tolvane {

namespace {

// What a folder name cannot hold, in wide forms that it can.
constexpr Replacement kReplacements[] = {
    {u'\r', u""},  {u'\n', u""},  {u'\t', u"　　"}, {u'\\', u"￥"}, {u'/', u"／"}, {u':', u"："},
    {u'*', u"＊"}, {u'?', u"？"}, {u'"', u" "},     {u'<', u"＜"},  {u'>', u"＞"}, {u'|', u"｜"}};

/// Whether each file of a run can be saved in the folder. Excel saves neither to a long path nor
/// within brackets, in which it encloses the names of workbooks itself: the whole log of a run
/// would be lost without a word.
bool TakesLogFiles(StringView path, const ELM327_Info& device) {
  if (!UsesSpreadsheetServer(device)) return path.size() <= kLogFolder_MAX;
  return path.size() <= kWorkbookFolder_MAX && path.find_first_of(u"[]") == StringView::npos;
}

/// A folder that would not take the files counts as one that cannot be made.
bool MakeLogFolder(platform::FileServices& files, const String& path, const ELM327_Info& device) {
  return TakesLogFiles(path, device) && files.CreateFolder(path);
}

constexpr std::int32_t kSubfolder_MAX = 1000;  // the count at which the last name is taken as it is

/// The number behind a taken name: "002" to "099"; from 100 on each count is put behind the suffix
/// so far, so that 100 gives "099100" and 101 "099100101".
void AppendCount(std::int32_t count, String& suffix) {
  if (count < 100) {
    suffix = FileNumberText(count).View();
  } else {
    suffix += DecimalText(std::int64_t{count});
  }
}

}  // namespace

bool Excel_OutputDB::Get_SubFolder_Name(ELM327_Info& device, String& FolderName) {
  const String base = BaseFolder(device.t_LogSaveFilePath_mode, device.t_LogSaveFilePath,
                                 device.ExecutableFolder(), services_.files, services_.folders);
  if (!services_.files.FolderExists(base)) return true;
  const String clean = Replaced(device.t_LogComment, kReplacements);
  if (!services_.files.FolderExists(base + u'\\' + clean)) {
    // The setting and not the base: in modes 0 and 1 the folder goes wherever the setting points,
    // and the log, which looks under the base, stays there.
    const String name(PathOfFolder(clean));
    const String elsewhere(PathOfFolder(device.t_LogSaveFilePath));
    const String path = elsewhere + u'\\' + name;
    const String in_base = base + u'\\' + name;
    const bool made = path == in_base ? MakeLogFolder(services_.files, path, device)
                                      : services_.files.CreateFolder(path);
    if (!made) return false;
    // One folder may be spelled in two ways; then the log goes into it all the same.
    if (services_.files.FolderExists(in_base) && !TakesLogFiles(in_base, device)) return false;
    FolderName = name;
    return true;
  }
  std::int32_t count = 2;
  String suffix(FileNumberText(count).View());
  const String stem = clean + u'-';
  while (count < kSubfolder_MAX && services_.files.FolderExists(base + u'\\' + stem + suffix)) {
    AppendCount(++count, suffix);
  }
  const String path = base + u'\\' + stem + suffix;
  if (!services_.files.FolderExists(path) && !MakeLogFolder(services_.files, path, device))
    return false;
  FolderName = stem + suffix;
  return true;
}

}  // namespace tolvane
