#include "platform/memory/main_window/main_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/memory/dialogs/message_box.h"
#include "platform/memory/rich_text/clipboard.h"

namespace tolvane::platform::memory {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Format = platform::Clipboard::Format;

class MemoryWindow : public testing::Test {
 protected:
  Journal journal_;
  MainWindow window_{journal_};
};

TEST_F(MemoryWindow, NotesEveryAssignmentAlsoWithoutAChange) {
  window_.Bt_Connect.Enabled(false);
  window_.Pic_Caution.Visible(true);
  window_.TB_Status.Text(u"通信中");
  window_.Form2.Progress(0.45);
  window_.other_forms.Unload(OtherForm::FormBG2_29);
  EXPECT_THAT(
      journal_.Take(),
      ElementsAre("Bt_Connect.Enabled = false", "Pic_Caution.Visible = true",
                  "TB_Status.Text = \"通信中\"", "Form2.Progress = 0.45", "FormBG2_29.Unload()"));
  EXPECT_THAT(journal_.Lines(), IsEmpty());
}

TEST_F(MemoryWindow, ALockedBoxTakesTheProgramsTextButNotTheUsers) {
  window_.TB_LogComment.Locked(true);
  window_.TB_LogComment.Type(u"user");
  EXPECT_EQ(window_.TB_LogComment.Text(), u"");
  window_.TB_LogComment.Text(u"program");
  window_.TB_LogComment.Locked(false);
  EXPECT_EQ(window_.TB_LogComment.Text(), u"program");
}

TEST_F(MemoryWindow, EverySelectionOfALineRaisesTheClickWithTheLineSelected) {
  ComboBox& list = window_.Cmb_Serect_Device;
  std::vector<std::int32_t> clicks;
  list.OnClick([&] { clicks.push_back(list.ListIndex()); });
  list.AddItem(u"first");
  list.AddItem(u"second");
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), u"");
  list.ListIndex(1);
  list.ListIndex(1);
  EXPECT_EQ(list.Text(), u"second");
  list.ListIndex(2);
  EXPECT_EQ(list.ListIndex(), -1) << "there is no such line";
  EXPECT_EQ(list.Text(), u"");
  EXPECT_THAT(clicks, ElementsAre(1, 1));
}

TEST(MemoryMessageBox, AnswersFromItsScriptThenNo) {
  Journal journal;
  EventGate gate;
  MessageBox box(journal, gate);
  box.Answer(true);
  EXPECT_TRUE(box.AskYesNo(u"first?", u"title"));
  EXPECT_FALSE(box.AskYesNo(u"second?", u"title"));
  box.Plain(u"done", u"");
  ASSERT_EQ(box.Boxes().size(), 3u);
  EXPECT_EQ(box.Boxes()[0].kind, MessageBox::Kind::kYesNo);
  EXPECT_EQ(box.Boxes()[0].title, u"title");
  EXPECT_EQ(box.Boxes()[2].kind, MessageBox::Kind::kPlain);
}

TEST(MemoryMessageBox, LetsTheProgramBeReachedWhileItIsUp) {
  Journal journal;
  EventGate gate;
  MessageBox box(journal, gate);
  int nested = 0;
  box.WhileShown([&] { ++nested; });
  box.Critical(u"stop", u"title");
  EXPECT_EQ(nested, 1);
}

TEST(MemoryClipboard, HoldsOneTextPerFormat) {
  Journal journal;
  Clipboard clipboard(journal);
  EXPECT_FALSE(clipboard.GetFormat(Format::kPlainText));
  EXPECT_TRUE(clipboard.Replace(u"plain", u"rich", 0));
  EXPECT_EQ(clipboard.GetText(Format::kPlainText, 0), u"plain");
  EXPECT_EQ(clipboard.GetText(Format::kRichText, 0), u"rich");
  EXPECT_THAT(journal.Lines(), ElementsAre("Clipboard.Replace()"));
  clipboard.Empty();
  EXPECT_FALSE(clipboard.GetFormat(Format::kRichText));
}

TEST(MemoryClipboard, HeldByAnotherTellsItsFormatsAndRefusesTheRest) {
  Journal journal;
  Clipboard clipboard(journal);
  clipboard.Put(u"theirs", Format::kPlainText);
  clipboard.HeldByAnother(30);
  EXPECT_FALSE(clipboard.Replace(u"mine", u"mine", 10));
  EXPECT_TRUE(clipboard.GetFormat(Format::kPlainText));
  EXPECT_EQ(clipboard.GetText(Format::kPlainText, 10), u"");
  EXPECT_EQ(clipboard.GetText(Format::kPlainText, 10), u"theirs") << "30 ms are over";
}

TEST(MemoryClipboard, WatchedByAnotherIsHeldBehindEachChange) {
  Journal journal;
  Clipboard clipboard(journal);
  clipboard.WatchedByAnother(5);
  EXPECT_TRUE(clipboard.Replace(u"a", u"a", 0));
  EXPECT_FALSE(clipboard.Replace(u"b", u"b", 4));
  EXPECT_EQ(clipboard.GetText(Format::kRichText, 1), u"a");
}

TEST(MemoryClipboard, ARefusedFormatIsMissingBesideTheOther) {
  Journal journal;
  Clipboard clipboard(journal);
  clipboard.Refuse(Format::kRichText);
  EXPECT_FALSE(clipboard.Replace(u"a", u"a", 0));
  EXPECT_TRUE(clipboard.GetFormat(Format::kPlainText));
  EXPECT_FALSE(clipboard.GetFormat(Format::kRichText));
}

}  // namespace
}  // namespace tolvane::platform::memory
