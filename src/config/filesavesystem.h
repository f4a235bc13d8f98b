#pragma once

#include <cstdint>

#include "platform/code_page.h"
#include "platform/file_services.h"
#include "platform/message_box.h"
#include "platform/rich_text_view.h"
#include "run/elm327_info.h"

namespace tolvane::FileSaveSystem {

/// Results of LoadConfigFile.
constexpr std::int32_t kConfigLoaded = 0;
constexpr std::int32_t kConfigMissing = -1;    // no file, or an error on the way
constexpr std::int32_t kConfigRefused = -2;    // not ours or too old: the file is deleted
constexpr std::int32_t kConfigLateError = -3;  // `device` is filled, but closing the file failed

/// Results of SaveConfigFile.
constexpr std::int32_t kConfigSaved = 0;  // also when the folder does not exist: nothing to write
constexpr std::int32_t kConfigSaveError = -1;

/// Reads config.dat of the executable's folder into `device`. The values are not checked. Before
/// settings of an older version are taken over, the user is asked in a modal box, which pumps
/// messages.
[[nodiscard]] std::int32_t LoadConfigFile(ELM327_Info& device, platform::FileServices& files,
                                          platform::CodePage& code_page,
                                          platform::MessageBox& message_box);

/// Overwrites config.dat from its start; if the file was longer, its tail is kept.
std::int32_t SaveConfigFile(const ELM327_Info& device, platform::FileServices& files,
                            platform::CodePage& code_page);

/// The page as lglist.dat of the executable's folder, Rich Text Format. Failures are dropped: the
/// old file or the old content stays.
void SaveViewList(const ELM327_Info& device, platform::FileServices& files,
                  platform::RichTextView& RTB_MainView);
void LoadViewList(const ELM327_Info& device, platform::FileServices& files,
                  platform::RichTextView& RTB_MainView);

}  // namespace tolvane::FileSaveSystem
