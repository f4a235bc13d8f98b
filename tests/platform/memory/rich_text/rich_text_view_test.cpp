#include "platform/memory/rich_text/rich_text_view.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/file_system.h"
#include "tests/helpers/rtf_of.h"

namespace tolvane::platform::memory {
namespace {

using Runs = std::vector<ColourRun>;

class RichTextViewInMemory : public testing::Test {
 protected:
  void Select(std::int32_t start, std::int32_t length) {
    view.SelStart(start);
    view.SelLength(length);
  }

  RichTextViewInMemory() { files.AddFolder(u"C:\\"); }

  Journal journal;
  CodePage932 code_page;
  FileSystem files{code_page};
  RichTextView view{journal, files};
};

TEST_F(RichTextViewInMemory, WritingTextReplacesEverythingAndDropsFormats) {
  view.Text(u"abc");
  Select(0, 2);
  view.SelColor(5);
  view.SelBackColor(6);
  view.Text(u"xyz");
  EXPECT_EQ(view.Text(), u"xyz");
  EXPECT_EQ(view.Page().colours.Runs(), Runs{});
  EXPECT_EQ(view.Page().backgrounds.Runs(), Runs{});
  EXPECT_EQ(view.SelLength(), 0);
}

TEST_F(RichTextViewInMemory, SelectionsAreClampedToTheText) {
  view.Text(u"abc");
  Select(1, 100);
  EXPECT_EQ(view.SelLength(), 2);
  EXPECT_EQ(view.SelText(), u"bc");
  Select(-5, 1);
  EXPECT_EQ(view.SelText(), u"a");
  Select(50, 1);
  EXPECT_EQ(view.SelLength(), 0);
  Select(1, -1);
  EXPECT_EQ(view.SelLength(), 0);
}

TEST_F(RichTextViewInMemory, ColoursGoToTheSelectionOnly) {
  view.Text(u"abcdef");
  Select(1, 2);
  view.SelColor(5);
  Select(2, 2);
  view.SelBackColor(6);
  EXPECT_EQ(view.Page().colours.Runs(), (Runs{{1, 3, 5}}));
  EXPECT_EQ(view.Page().backgrounds.Runs(), (Runs{{2, 4, 6}}));
}

TEST_F(RichTextViewInMemory, SelTextReplacesTheSelectionAndMovesWhatFollows) {
  view.Text(u"abcdef");
  Select(0, 6);
  view.SelColor(5);
  Select(2, 2);
  view.SelText(u"XYZ");
  EXPECT_EQ(view.Text(), u"abXYZef");
  EXPECT_EQ(view.Page().colours.Runs(), (Runs{{0, 2, 5}, {5, 7, 5}}));
  EXPECT_EQ(view.SelLength(), 0);
  view.SelText(u"!");
  EXPECT_EQ(view.Text(), u"abXYZ!ef");
}

TEST_F(RichTextViewInMemory, RichTextCarriesFormatsBothWays) {
  view.Text(u"除外\r\nabc");
  Select(0, 2);
  view.SelColor(5);
  Select(4, 1);
  view.SelBackColor(6);
  const String rtf = view.TextRTF();
  view.Text(u"");
  EXPECT_TRUE(view.TextRTF(rtf));
  EXPECT_EQ(view.Text(), u"除外\r\nabc");
  EXPECT_EQ(view.Page().colours.Runs(), (Runs{{0, 2, 5}}));
  EXPECT_EQ(view.Page().backgrounds.Runs(), (Runs{{4, 5, 6}}));
}

TEST_F(RichTextViewInMemory, SelRTFIsTheSelectionAlone) {
  view.Text(u"abcdef");
  Select(1, 4);
  view.SelColor(5);
  Select(3, 3);
  EXPECT_TRUE(view.TextRTF(view.SelRTF()));
  EXPECT_EQ(view.Text(), u"def");
  EXPECT_EQ(view.Page().colours.Runs(), (Runs{{0, 2, 5}}));
}

TEST_F(RichTextViewInMemory, RichTextThatCannotBeReadLeavesTheContent) {
  view.Text(u"stays");
  EXPECT_FALSE(view.TextRTF(u"just text"));
  const std::string rtf = RtfOf(u"new");
  files.AddFile(u"C:\\a.rtf", rtf);
  view.RefuseRichText(true);
  EXPECT_FALSE(view.TextRTF(String(rtf.begin(), rtf.end())));
  EXPECT_FALSE(view.LoadFile(u"C:\\a.rtf"));
  EXPECT_EQ(view.Text(), u"stays");
  view.RefuseRichText(false);
  EXPECT_TRUE(view.LoadFile(u"C:\\a.rtf"));
  EXPECT_EQ(view.Text(), u"new");
}

TEST_F(RichTextViewInMemory, UndoTakesBackOneStep) {
  EXPECT_FALSE(view.CanUndo());
  view.Text(u"abc");
  EXPECT_FALSE(view.CanUndo());
  Select(1, 1);
  view.SelText(u"XX");
  EXPECT_TRUE(view.CanUndo());
  view.Undo();
  EXPECT_EQ(view.Text(), u"abc");
  EXPECT_FALSE(view.CanUndo());
  view.Undo();
  EXPECT_EQ(view.Text(), u"abc");

  Select(0, 3);
  view.SelColor(5);
  view.SelBackColor(6);
  view.Undo();
  EXPECT_EQ(view.Page().colours.Runs(), (Runs{{0, 3, 5}}));
  EXPECT_EQ(view.Page().backgrounds.Runs(), Runs{});
}

TEST_F(RichTextViewInMemory, SwappingShowsThePageAndGivesTheOldStorageBack) {
  view.Text(u"before");
  Select(1, 3);
  view.SelText(u"x");
  auto page = std::make_unique<RichTextPage>();
  page->text = u"tick";
  page->colours.Paint(0, 2, 5);
  const RichTextPage* const swapped = page.get();
  view.SwapPage(page);
  EXPECT_EQ(&view.Page(), swapped);
  ASSERT_NE(page, nullptr);
  EXPECT_EQ(view.Text(), u"tick");
  EXPECT_EQ(view.SelLength(), 0);
  EXPECT_FALSE(view.CanUndo());
  EXPECT_EQ(view.Swaps(), 1);
  view.Refresh();
  EXPECT_EQ(view.Refreshes(), 1);
}

TEST_F(RichTextViewInMemory, LockingStopsTheUserAndNotTheProgram) {
  view.Locked(true);
  view.UserTypes(u"user");
  EXPECT_EQ(view.Text(), u"");
  view.SelText(u"program");
  EXPECT_EQ(view.Text(), u"program");
  view.Locked(false);
  EXPECT_FALSE(view.Locked());
  view.UserTypes(u"!");
  EXPECT_EQ(view.Text(), u"program!");
}

TEST_F(RichTextViewInMemory, FilesTakeRichOrPlainText) {
  view.Text(u"除外");
  Select(0, 1);
  view.SelColor(5);
  EXPECT_TRUE(view.SaveFile(u"C:\\a.rtf", RichTextView::FileFormat::kRichText));
  EXPECT_TRUE(view.SaveFile(u"C:\\a.txt", RichTextView::FileFormat::kPlainText));
  const std::string rtf = files.Bytes(u"C:\\a.rtf").value_or("");
  EXPECT_EQ(String(rtf.begin(), rtf.end()), view.TextRTF());
  EXPECT_EQ(files.Bytes(u"C:\\a.txt"), "\x8F\x9C\x8A\x4F");
  view.Text(u"");
  EXPECT_TRUE(view.LoadFile(u"C:\\a.rtf"));
  EXPECT_EQ(view.Text(), u"除外");
  EXPECT_EQ(view.Page().colours.Runs(), (Runs{{0, 1, 5}}));
}

TEST_F(RichTextViewInMemory, AFailingFileLeavesTheContent) {
  view.Text(u"stays");
  EXPECT_FALSE(view.LoadFile(u"C:\\missing.rtf"));
  files.AddFile(u"C:\\plain.rtf", "no rich text");
  EXPECT_FALSE(view.LoadFile(u"C:\\plain.rtf"));
  EXPECT_EQ(view.Text(), u"stays");
  files.FreeSpace(5);
  EXPECT_FALSE(view.SaveFile(u"C:\\a.rtf", RichTextView::FileFormat::kRichText));
  files.FreeSpace(1000);
  files.FailClose(true);
  EXPECT_FALSE(view.SaveFile(u"C:\\a.rtf", RichTextView::FileFormat::kRichText));
}

TEST_F(RichTextViewInMemory, TheJournalTellsWhatIsDoneOnceInAWhile) {
  view.Text(u"a");
  view.Locked(true);
  view.ScrollToEnd();
  view.PlainCompositionColours();
  EXPECT_EQ(journal.Take(),
            (std::vector<std::string>{"RTB_MainView.Text = \"a\"", "RTB_MainView.Locked = true",
                                      "RTB_MainView.ScrollToEnd()",
                                      "RTB_MainView.PlainCompositionColours()"}));
}

}  // namespace
}  // namespace tolvane::platform::memory
