#include "shell/formversion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/system/shell.h"

namespace tolvane {
namespace {

using testing::ElementsAre;

class FormVersionTest : public testing::Test {
 protected:
  FormVersionTest() { device.Param_ALL_Clear(); }

  ELM327_Info device{u"C:\\Tolvane"};
  platform::memory::Journal journal;
  platform::memory::Shell shell{journal};
  FormVersion form;
};

TEST_F(FormVersionTest, LoadingShowsTitleAndCopyright) {
  form.Form_Load(device);
  EXPECT_EQ(form.Caption, u"Tolvane Ver1.23");
  EXPECT_EQ(form.Lb_App_Title, form.Caption);
  EXPECT_EQ(form.Lb_copylight, device.Copy_light);
}

TEST_F(FormVersionTest, TheAddressOfTheDesignIsThatOfTheHomePage) {
  EXPECT_EQ(FormVersion::kPictureAddress, device.Homepage_URL);
  EXPECT_EQ(form.Lb_URL, device.Homepage_URL);
}

TEST_F(FormVersionTest, TheTextOpensTheHomePageOfTheRecordAndThePictureThatOfTheDesign) {
  device.Homepage_URL = u"https://elsewhere.example/";
  FormVersion::Lb_URL_MouseDown(device, shell);
  FormVersion::PicURL_Click(shell);
  EXPECT_THAT(journal.Lines(), ElementsAre("ShellExecuteA(open, https://elsewhere.example/, 1)",
                                           "ShellExecuteA(open, https://tolvane.example/, 1)"));
}

}  // namespace
}  // namespace tolvane
