#pragma once

#include <cstdint>

#include "platform/help_window.h"

/// The help texts of the settings dialogs.
namespace tolvane::HelpWizard {

/// Shows a text in FormHelp: topic 1 of the common settings, 2 of the extension settings, 3 of the
/// log settings. Any other topic does nothing.
void Help_Show(std::int32_t topic, platform::HelpWindow& FormHelp,
               platform::StringResources& resources);

}  // namespace tolvane::HelpWizard
