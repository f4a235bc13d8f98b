#include "logging/excel_outputdb.h"
#include "logging/log_naming.h"
#include "logging/spreadsheet_server.h"
#include "run/replaced_text.h"

namespace tolvane {

namespace {

// Characters that a folder name cannot have, and the wide forms that replace them.
constexpr Replacement kReplacements[] = {
    {u'\r', u""},  {u'\n', u""},  {u'\t', u"　　"}, {u'\\', u"￥"}, {u'/', u"／"}, {u':', u"："},
    {u'*', u"＊"}, {u'?', u"？"}, {u'"', u" "},     {u'<', u"＜"},  {u'>', u"＞"}, {u'|', u"｜"}};

/// True when every log file of a run can be saved in the folder. Excel cannot save to a long path,
/// nor to one with brackets, which it uses around workbook names; the log of the run would be lost
/// silently.
bool TakesLogFiles(StringView path, const ELM327_Info& device) {
  if (!UsesSpreadsheetServer(device)) return path.size() <= kLogFolder_MAX;
  return path.size() <= kWorkbookFolder_MAX && path.find_first_of(u"[]") == StringView::npos;
}

/// False also for a folder in which the files could not be saved.
bool MakeLogFolder(platform::FileServices& files, const String& path, const ELM327_Info& device) {
  return TakesLogFiles(path, device) && files.CreateFolder(path);
}

constexpr std::int32_t kSubfolder_MAX = 1000;  // the search stops here; that name may exist

/// The suffix of a name that is taken: "002" to "099". From 100 on each count is appended to the
/// previous suffix, so 100 gives "099100" and 101 "099100101"; this is kept on purpose.
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
    // The setting and not the base: in modes 0 and 1 the folder is made where the setting points,
    // while the log looks under the base, does not find it and stays in the base.
    const String name(PathOfFolder(clean));
    const String elsewhere(PathOfFolder(device.t_LogSaveFilePath));
    const String path = elsewhere + u'\\' + name;
    const String in_base = base + u'\\' + name;
    const bool made = path == in_base ? MakeLogFolder(services_.files, path, device)
                                      : services_.files.CreateFolder(path);
    if (!made) return false;
    // Both paths may be spellings of the same folder; the log then does go into it.
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
