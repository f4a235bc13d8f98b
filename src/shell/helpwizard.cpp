#include "shell/helpwizard.h"

#include "run/replaced_text.h"

namespace tolvane::HelpWizard {

namespace {

constexpr std::int32_t kFirstTopic = 1;
constexpr std::int32_t kLastTopic = 3;

// The anchors of the manual's headings.
constexpr StringView kConnecting = u"2-接続して受信する";
constexpr StringView kReadingThePage = u"3-画面の見方";

// Characters of a path that cannot stand as they are in a file: address.
constexpr Replacement kEscapes[] = {{u'\\', u"/"}, {u' ', u"%20"}, {u'#', u"%23"}, {u'%', u"%25"}};

String AddressOf(StringView path) {
  const bool on_server = path.starts_with(u"\\\\");
  return (on_server ? u"file:" : u"file:///") + Replaced(path, kEscapes);
}

}  // namespace

void Help_Show(std::int32_t topic, platform::HelpWindow& FormHelp,
               platform::StringResources& resources) {
  if (topic < kFirstTopic || topic > kLastTopic) return;
  FormHelp.Show();
  FormHelp.TB_View(resources.LoadText(kTextBeforeFirst + topic));
}

void Manual_Show(StringView executable_folder, bool connected, platform::FileServices& files,
                 platform::Shell& shell) {
  const String manual = String(executable_folder) + u"\\manual.html";
  if (!files.FileExists(manual)) return;
  const StringView heading = connected ? kReadingThePage : kConnecting;
  shell.OpenPage(manual, AddressOf(manual) + u"#" + String(heading));
}

}  // namespace tolvane::HelpWizard
