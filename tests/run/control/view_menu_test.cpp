#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/run/control/view_bed.h"

namespace tolvane {
namespace {

using Format = platform::Clipboard::Format;
using testing::ElementsAre;
using testing::IsEmpty;

class ViewMenu : public ViewBed {
 protected:
  /// Names of the items that are enabled, without "menu_View_".
  [[nodiscard]] std::vector<std::string> Enabled() const {
    auto& window = bench_.memory.window;
    const std::pair<const char*, const platform::memory::MenuItem&> items[] = {
        {"All_Copy", window.menu_View_All_Copy},
        {"Ctrl_Z", window.menu_View_Ctrl_Z},
        {"Ctrl_X", window.menu_View_Ctrl_X},
        {"Ctrl_C", window.menu_View_Ctrl_C},
        {"Ctrl_V", window.menu_View_Ctrl_V},
        {"DEL", window.menu_View_DEL},
        {"Text_Red", window.menu_View_Text_Red},
        {"Text_Blue", window.menu_View_Text_Blue},
        {"Text_Black", window.menu_View_Text_Black},
        {"Marker_Pink", window.menu_View_Marker_Pink},
        {"Marker_Yellow", window.menu_View_Marker_Yellow},
        {"Marker_black", window.menu_View_Marker_black},
        {"Marker_white", window.menu_View_Marker_white},
        {"Date", window.menu_View_Date}};
    std::vector<std::string> names;
    for (const auto& [name, item] : items) {
      if (item.Enabled()) names.emplace_back(name);
    }
    return names;
  }
};

TEST_F(ViewMenu, ASelectionEnablesWhatWorksOnIt) {
  clipboard_.Put(u"x", Format::kPlainText);
  view_.SelStart(1);
  view_.SelLength(1);
  view_.SelText(u"y");  // something to undo
  Select(2, 1);
  EXPECT_THAT(Enabled(),
              ElementsAre("Ctrl_X", "Ctrl_C", "DEL", "Text_Red", "Text_Blue", "Text_Black",
                          "Marker_Pink", "Marker_Yellow", "Marker_black", "Marker_white"));
}

TEST_F(ViewMenu, WithoutASelectionCopyAllAndTheDateAreThere) {
  Select(2, 0);
  EXPECT_THAT(Enabled(), ElementsAre("All_Copy", "Date"));
}

TEST_F(ViewMenu, PasteAndUndoComeWithTheirMeans) {
  clipboard_.Put(u"x", Format::kPlainText);
  view_.SelText(u"y");
  Select(2, 0);
  EXPECT_THAT(Enabled(), ElementsAre("All_Copy", "Ctrl_Z", "Ctrl_V", "Date"));
}

TEST_F(ViewMenu, RichTextAloneDoesNotEnablePaste) {
  clipboard_.Put(u"{\\rtf1 x}", Format::kRichText);
  Select(2, 0);
  EXPECT_THAT(Enabled(), ElementsAre("All_Copy", "Date"));
}

TEST_F(ViewMenu, AnEmptyViewOffersTheDateOnly) {
  view_.Text(u"");
  Select(0, 0);
  EXPECT_THAT(Enabled(), ElementsAre("Date"));
}

TEST_F(ViewMenu, BeforeAnySelectionChangeTheStateOfTheStartHolds) {
  clipboard_.Put(u"x", Format::kPlainText);
  EXPECT_THAT(Enabled(), ElementsAre("Date")) << "the clipboard was empty at the start";
}

TEST_F(ViewMenu, TheMenuRestsWhileTheTimerOfFormBGRuns) {
  Select(2, 0);
  bench_.memory.FormBG.Enabled(true);
  Select(2, 3);
  EXPECT_THAT(Enabled(), ElementsAre("All_Copy", "Date"));
  bench_.form.RTB_MainView_ContextMenu();
  EXPECT_THAT(bench_.Noted("menu_View.PopUp"), IsEmpty());
  bench_.form.RTB_MainView_GotFocus();
  EXPECT_THAT(bench_.Noted("TB_Status.SetFocus"), testing::SizeIs(1));
}

TEST_F(ViewMenu, TheMenuLivesDuringRunsOfTheOtherWorkers) {
  bench_.memory.FormBG2.Enabled(true);
  bench_.memory.FormBG_29.Enabled(true);
  bench_.memory.FormBG2_29.Enabled(true);
  Select(2, 0);
  EXPECT_THAT(Enabled(), ElementsAre("All_Copy", "Date"));
  bench_.form.RTB_MainView_ContextMenu();
  EXPECT_THAT(bench_.Noted("menu_View.PopUp"), testing::SizeIs(1));
  bench_.form.RTB_MainView_GotFocus();
  EXPECT_THAT(bench_.Noted("TB_Status.SetFocus"), IsEmpty());
}

}  // namespace
}  // namespace tolvane
