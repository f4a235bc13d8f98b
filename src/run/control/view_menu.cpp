// The events of the page, and which items of its pop-up menu can be chosen.

#include <array>
#include <cstdint>

#include "run/control/form1.h"

namespace tolvane {

namespace {

enum class EnabledFor : std::uint8_t { kCopyAll, kUndo, kSelection, kPaste, kNoSelection };

struct ViewMenuRow {
  platform::MenuItem& item;
  EnabledFor what;
};

}  // namespace

struct Form1::ViewMenuFacts {
  bool selection;
  bool text;  // the page is not empty
  bool undo;
  bool clipboard_text;
};

void Form1::Set_View_Menu(const ViewMenuFacts& facts) {
  using enum EnabledFor;
  const auto rows = std::to_array<ViewMenuRow>({
      {window_.menu_View_All_Copy, kCopyAll},
      {window_.menu_View_Ctrl_Z, kUndo},
      {window_.menu_View_Ctrl_X, kSelection},
      {window_.menu_View_Ctrl_C, kSelection},
      {window_.menu_View_Ctrl_V, kPaste},
      {window_.menu_View_DEL, kSelection},
      {window_.menu_View_Text_Red, kSelection},
      {window_.menu_View_Text_Blue, kSelection},
      {window_.menu_View_Text_Black, kSelection},
      {window_.menu_View_Marker_Pink, kSelection},
      {window_.menu_View_Marker_Yellow, kSelection},
      {window_.menu_View_Marker_black, kSelection},
      {window_.menu_View_Marker_white, kSelection},
      {window_.menu_View_Date, kNoSelection},
  });
  const auto enabled = [&facts](EnabledFor what) {
    switch (what) {
      case kSelection:
        return facts.selection;
      case kNoSelection:
        return !facts.selection;
      case kCopyAll:
        return !facts.selection && facts.text;
      case kUndo:
        return !facts.selection && facts.undo;
      case kPaste:
        return !facts.selection && facts.clipboard_text;
    }
    return false;
  };
  for (const auto& [item, what] : rows) item.Enabled(enabled(what));
}

void Form1::Set_View_Menu_At_Start() {
  Set_View_Menu(
      {.selection = false, .text = false, .undo = false, .clipboard_text = Clipboard_Has_Text()});
}

// Only FormBG's timer is tested here and below: during a run of the other workers the menu follows
// the selection and opens, although the page is locked.
void Form1::RTB_MainView_SelChange() {
  // When a tick removes the selection its timer is off, but this event arrives in the next yield,
  // where the timer is on again.
  view_menu_missed_a_change_ = platform_.timers.FormBG.Enabled();
  if (view_menu_missed_a_change_) return;
  Set_View_Menu({.selection = window_.RTB_MainView.SelLength() >= 1,
                 .text = !window_.RTB_MainView.Text().empty(),
                 .undo = window_.RTB_MainView.CanUndo(),
                 .clipboard_text = Clipboard_Has_Text()});
}

void Form1::Set_View_Menu_After_Run() {
  if (view_menu_missed_a_change_) RTB_MainView_SelChange();
}

void Form1::RTB_MainView_ContextMenu() {
  if (!platform_.timers.FormBG.Enabled()) window_.menu_View.PopUp();
}

void Form1::RTB_MainView_GotFocus() {
  if (platform_.timers.FormBG.Enabled()) window_.TB_Status.SetFocus();
}

bool Form1::Clipboard_Has_Text() {
  return platform_.clipboard.GetFormat(platform::Clipboard::Format::kPlainText);
}

}  // namespace tolvane
