#pragma once

#include "platform/platform.h"
#include "platform/rich_text_view.h"
#include "run/elm327_info.h"

namespace tolvane::IME_Function {

/// Saves what RTB_MainView shows to a new file and says so in a modal box, which pumps messages.
/// When the snapshot folder is missing, the folder setting of `device` is set to the desktop.
void SaveSnapshotFile(ELM327_Info& device, const platform::Platform& platform,
                      platform::RichTextView& RTB_MainView);

}  // namespace tolvane::IME_Function
