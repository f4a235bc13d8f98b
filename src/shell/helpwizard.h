#pragma once

#include <cstdint>

#include "platform/file_services.h"
#include "platform/help_window.h"
#include "platform/shell.h"

/// The help texts of the settings dialogs, and the manual.
namespace tolvane::HelpWizard {

constexpr std::int32_t kTextBeforeFirst = 100;  // topic 1 is text 101 of the program's

/// Shows a text in FormHelp: topic 1 of the common settings, 2 of the extension settings, 3 of the
/// log settings. Any other topic does nothing.
void Help_Show(std::int32_t topic, platform::HelpWindow& FormHelp,
               platform::StringResources& resources);

/// Opens the manual, manual.html in the executable's folder, at the heading about connecting or,
/// during a run, about reading the page. Does nothing when the file is missing.
void Manual_Show(StringView executable_folder, bool connected, platform::FileServices& files,
                 platform::Shell& shell);

}  // namespace tolvane::HelpWizard
