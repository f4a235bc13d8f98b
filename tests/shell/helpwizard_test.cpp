#include "shell/helpwizard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "platform/memory/help_window.h"

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HelpWizardTest : public testing::Test {
 protected:
  HelpWizardTest() {
    resources.Put(100, u"before");
    resources.Put(101, u"common");
    resources.Put(102, u"option");
    resources.Put(103, u"log");
    resources.Put(104, u"after");
  }

  platform::memory::Journal journal;
  platform::memory::HelpWindow FormHelp{journal};
  platform::memory::StringResources resources;
};

TEST_F(HelpWizardTest, EachTopicShowsTheWindowWithItsText) {
  HelpWizard::Help_Show(1, FormHelp, resources);
  EXPECT_THAT(journal.Take(), ElementsAre("FormHelp.Show()", "FormHelp.TB_View = \"common\""));
  HelpWizard::Help_Show(2, FormHelp, resources);
  EXPECT_THAT(journal.Take(), ElementsAre("FormHelp.Show()", "FormHelp.TB_View = \"option\""));
  HelpWizard::Help_Show(3, FormHelp, resources);
  EXPECT_THAT(journal.Take(), ElementsAre("FormHelp.Show()", "FormHelp.TB_View = \"log\""));
}

TEST_F(HelpWizardTest, AnyOtherTopicDoesNothing) {
  for (const std::int32_t topic : {0, 4, -1, 101, INT32_MIN, INT32_MAX}) {
    HelpWizard::Help_Show(topic, FormHelp, resources);
    EXPECT_THAT(journal.Lines(), IsEmpty()) << topic;
    EXPECT_FALSE(FormHelp.Visible()) << topic;
  }
}

}  // namespace
}  // namespace tolvane
