// Editing the page between runs: the commands of its pop-up menu.

#include <cstdint>
#include <string>

#include "run/control/form1.h"
#include "run/number_text.h"

namespace tolvane {

namespace {

using platform::Clipboard;

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
