// Editing the page between runs: the methods of Form1 for the view's events and its pop-up menu.

#include <array>
#include <cstdint>
#include <string>

#include "run/control/form1.h"
#include "run/number_text.h"

namespace tolvane {

namespace {

using platform::Clipboard;

enum class EnabledFor : std::uint8_t { kCopyAll, kUndo, kSelection, kPaste, kNoSelection };

struct ViewMenuRow {
  platform::MenuItem& item;
  EnabledFor what;
};

/// "2026年01月05日(月) 09:07" and one blank.
String DateText(const platform::LocalTime& now, StringView weekday) {
  String text(PaddedText(now.year, 4).View());
  text += u'年';
  text += PaddedText(now.month, 2);
  text += u'月';
  text += PaddedText(now.day, 2);
  text += u"日(";
  text += weekday;
  text += u") ";
  text += PaddedText(now.hour, 2);
  text += u':';
  text += PaddedText(now.minute, 2);
  text += u' ';
  return text;
}

}  // namespace

struct Form1::ViewMenuFacts {
  bool selection;
  bool text;  // the page is not empty
  bool undo;
  bool clipboard_text;
};

void Form1::Set_View_Menu(const ViewMenuFacts& facts) {
  using enum EnabledFor;
  const std::array<ViewMenuRow, 14> rows = {{{window_.menu_View_All_Copy, kCopyAll},
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
                                             {window_.menu_View_Date, kNoSelection}}};
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
  return platform_.clipboard.GetFormat(Clipboard::Format::kPlainText);
}

void Form1::To_Clipboard(StringView plain_text, StringView rich_text) {
  platform_.clipboard.Replace(plain_text, rich_text, Clipboard_Patience());
}

void Form1::menu_View_All_Copy_Click() {
  To_Clipboard(window_.RTB_MainView.Text(), window_.RTB_MainView.TextRTF());
}

void Form1::menu_View_Ctrl_Z_Click() { window_.RTB_MainView.Undo(); }

void Form1::menu_View_Ctrl_X_Click() {
  menu_View_Ctrl_C_Click();
  // Even when the clipboard refused the text: 元に戻す restores it.
  menu_View_DEL_Click();
}

void Form1::menu_View_Ctrl_C_Click() {
  To_Clipboard(window_.RTB_MainView.SelText(), window_.RTB_MainView.SelRTF());
}

void Form1::menu_View_Ctrl_V_Click() {
  for (const auto format : {Clipboard::Format::kRichText, Clipboard::Format::kPlainText}) {
    if (!platform_.clipboard.GetFormat(format)) continue;
    // Empty also when another program holds the clipboard; the view is then left alone.
    const String text = platform_.clipboard.GetText(format, Clipboard_Patience());
    if (!text.empty()) window_.RTB_MainView.SelText(text);
    return;
  }
}

void Form1::menu_View_DEL_Click() { window_.RTB_MainView.SelText(u""); }

void Form1::menu_View_Text_Red_Click() { window_.RTB_MainView.SelColor(Rgb(255, 0, 0)); }
void Form1::menu_View_Text_Blue_Click() { window_.RTB_MainView.SelColor(Rgb(0, 0, 255)); }
void Form1::menu_View_Text_Black_Click() { window_.RTB_MainView.SelColor(Rgb(0, 0, 0)); }

void Form1::menu_View_Marker_Pink_Click() { View_Set_Char_Effect(255, 211, 248); }
void Form1::menu_View_Marker_Yellow_Click() { View_Set_Char_Effect(255, 250, 163); }
void Form1::menu_View_Marker_black_Click() { View_Set_Char_Effect(0, 0, 0); }
void Form1::menu_View_Marker_white_Click() { View_Set_Char_Effect(255, 255, 255); }

void Form1::View_Set_Char_Effect(std::int16_t red, std::int16_t green, std::int16_t blue) {
  window_.RTB_MainView.SelBackColor(Rgb(red, green, blue));
}

void Form1::menu_View_Date_Click() {
  const platform::LocalTime now = platform_.wall_clock.Now();
  window_.RTB_MainView.SelText(DateText(now, platform_.wall_clock.ShortWeekday(now)));
}

}  // namespace tolvane
