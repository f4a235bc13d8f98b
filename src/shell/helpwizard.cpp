#include "shell/helpwizard.h"

#include <algorithm>
#include <iterator>

namespace tolvane::HelpWizard {

namespace {

constexpr std::int32_t kFirstTopic = 1;
constexpr std::int32_t kLastTopic = 3;

// The manual's headings as they are called in its addresses.
constexpr StringView kConnecting = u"2-接続して受信する";
constexpr StringView kReadingThePage = u"3-画面の見方";

struct Written {
  char16_t unit;
  StringView as;
};
// The units of a path that are not themselves in an address.
constexpr Written kWritten[] = {{u'\\', u"/"}, {u' ', u"%20"}, {u'#', u"%23"}, {u'%', u"%25"}};

String AddressOf(StringView path) {
  const bool on_server = path.starts_with(u"\\\\");
  String address = on_server ? u"file:" : u"file:///";
  for (const char16_t unit : path) {
    const auto* written = std::ranges::find(kWritten, unit, &Written::unit);
    if (written == std::end(kWritten)) {
      address += unit;
    } else {
      address += written->as;
    }
  }
  return address;
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
