#pragma once

#include <tolvane_product.h>

#include "platform/shell.h"
#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane {

/// The about box.
struct FormVersion {
  /// Part of the window's layout; the same as Homepage_URL.
  static constexpr StringView kPictureAddress = product::kHomePage;

  String Caption;
  String Lb_App_Title;
  String Lb_copylight;
  String Lb_URL{kPictureAddress};

  void Form_Load(const ELM327_Info& device);
  static void Lb_URL_MouseDown(const ELM327_Info& device, platform::Shell& shell);
  static void PicURL_Click(platform::Shell& shell);
};

}  // namespace tolvane
