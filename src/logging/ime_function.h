#pragma once

#include "platform/file_services.h"
#include "platform/local_time.h"
#include "platform/message_box.h"
#include "platform/rich_text_view.h"
#include "run/elm327_info.h"

namespace tolvane::IME_Function {

/// What a snapshot is made with. Less than Platform and MainWindow: no adapter, no other control.
struct SnapshotServices {
  platform::FileServices& files;
  platform::SpecialFolders& folders;
  platform::WallClock& wall_clock;
  platform::MessageBox& message_box;
  platform::RichTextView& RTB_MainView;
};

/// Saves what RTB_MainView shows to a new file and says so in a modal box, which pumps messages.
/// When the snapshot folder is missing, the folder setting of `device` is set to the desktop.
void SaveSnapshotFile(ELM327_Info& device, const SnapshotServices& services);

}  // namespace tolvane::IME_Function
