#include "shell/helpwizard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "platform/memory/dialogs/help_window.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/file_system.h"
#include "platform/memory/system/shell.h"

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

class ManualTest : public testing::Test {
 protected:
  platform::memory::Journal journal;
  platform::memory::Shell shell{journal};
  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem files{code_page};
};

TEST_F(ManualTest, IsShownAtWhatHelpsBeforeARunOrInOne) {
  files.AddFile(u"C:\\Tolvane\\manual.html", "");
  HelpWizard::Manual_Show(u"C:\\Tolvane", false, files, shell);
  EXPECT_THAT(journal.Take(), ElementsAre("OpenPage(C:\\Tolvane\\manual.html, "
                                          "file:///C:/Tolvane/manual.html#2-接続して受信する)"));
  HelpWizard::Manual_Show(u"C:\\Tolvane", true, files, shell);
  EXPECT_THAT(journal.Take(), ElementsAre("OpenPage(C:\\Tolvane\\manual.html, "
                                          "file:///C:/Tolvane/manual.html#3-画面の見方)"));
}

TEST_F(ManualTest, StandsBesideTheProgramOrNothingHappens) {
  files.AddFile(u"C:\\manual.html", "");
  HelpWizard::Manual_Show(u"C:\\Tolvane", false, files, shell);
  EXPECT_THAT(journal.Lines(), IsEmpty());
}

TEST_F(ManualTest, IsFoundInFoldersOfAnyName) {
  const struct {
    StringView folder;
    const char* address;
  } rows[] = {{u"D:\\計測 #1 100%", "file:///D:/計測%20%231%20100%25/manual.html#"},
              {u"\\\\server\\tools", "file://server/tools/manual.html#"}};
  for (const auto& row : rows) {
    files.AddFile(String(row.folder) + u"\\manual.html", "");
    HelpWizard::Manual_Show(row.folder, false, files, shell);
    EXPECT_THAT(journal.Take(), ElementsAre(testing::HasSubstr(row.address)));
  }
}

}  // namespace
}  // namespace tolvane
