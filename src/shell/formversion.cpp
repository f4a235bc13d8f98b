#include "shell/formversion.h"

namespace tolvane {

namespace {

constexpr StringView kOpen = u"open";
constexpr std::int32_t kShowNormal = 1;

}  // namespace

void FormVersion::Form_Load(const ELM327_Info& device) {
  Caption = device.Application_title;
  Lb_App_Title = Caption;
  Lb_copylight = device.Copy_light;
}

void FormVersion::Lb_URL_MouseDown(const ELM327_Info& device, platform::Shell& shell) {
  shell.ShellExecuteA(kOpen, device.Homepage_URL, kShowNormal);
}

void FormVersion::PicURL_Click(platform::Shell& shell) {
  shell.ShellExecuteA(kOpen, kPictureAddress, kShowNormal);
}

}  // namespace tolvane
