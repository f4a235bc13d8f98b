#include "shell/helpwizard.h"

namespace tolvane::HelpWizard {

namespace {

constexpr std::int32_t kFirstTopic = 1;
constexpr std::int32_t kLastTopic = 3;
constexpr std::int32_t kTextBeforeFirst = 100;  // topic 1 is text 101

}  // namespace

void Help_Show(std::int32_t topic, platform::HelpWindow& FormHelp,
               platform::StringResources& resources) {
  if (topic < kFirstTopic || topic > kLastTopic) return;
  FormHelp.Show();
  FormHelp.TB_View(resources.LoadText(kTextBeforeFirst + topic));
}

}  // namespace tolvane::HelpWizard
