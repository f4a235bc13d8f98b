#include "platform/windows/rich_text/rich_edit_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "platform/byte_text.h"
#include "platform/windows/system/code_page.h"
#include "tests/platform/windows/rich_text/refused_streams.h"
#include "tests/platform/windows/system/scratch_folder.h"

namespace tolvane::platform::windows {
namespace {

class RichEdit : public testing::Test {
 protected:
  void SetUp() override {
    parent_ = CreateWindowExW(0, WC_STATICW, L"", WS_OVERLAPPED, 0, 0, 600, 400, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    ASSERT_TRUE(view_.Create(
        parent_, 1, [this] { ++selection_changes_; }, [](bool) {}));
    MoveWindow(view_.Hwnd(), 0, 0, 500, 300, FALSE);
  }
  void TearDown() override { DestroyWindow(parent_); }

  /// Format of the character at a page position.
  CHARFORMAT2W FormatAt(std::int32_t position) {
    view_.SelStart(position);
    view_.SelLength(1);
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    SendMessageW(view_.Hwnd(), EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    return format;
  }
  COLORREF ColourAt(std::int32_t position) {
    const CHARFORMAT2W format = FormatAt(position);
    return (format.dwEffects & CFE_AUTOCOLOR) != 0 ? 0 : format.crTextColor;
  }

  static std::unique_ptr<RichTextPage> Page(StringView text) {
    auto page = std::make_unique<RichTextPage>();
    page->text = text;
    return page;
  }

  WindowsCodePage code_page_;
  RichEditView view_{code_page_};
  HWND parent_ = nullptr;
  int selection_changes_ = 0;
};

TEST_F(RichEdit, TextComesBackWithItsLineEnds) {
  view_.Text(u"ID  DLC\r\n1A0\r\n受信除外\r\n");
  EXPECT_EQ(view_.Text(), u"ID  DLC\r\n1A0\r\n受信除外\r\n");
  view_.Text(u"");
  EXPECT_EQ(view_.Text(), u"");
}

TEST_F(RichEdit, TextComesInTheFontOfThePageWhateverFormatsStoodThere) {
  const auto expect_default = [this](std::int32_t position) {
    const CHARFORMAT2W format = FormatAt(position);
    EXPECT_STREQ(format.szFaceName, L"ＭＳ ゴシック") << position;
    EXPECT_EQ(format.yHeight, 9 * 20) << position;
    EXPECT_EQ(format.bCharSet, SHIFTJIS_CHARSET) << position;
    EXPECT_EQ(format.dwEffects & (CFE_BOLD | CFE_AUTOBACKCOLOR), CFE_AUTOBACKCOLOR) << position;
    EXPECT_EQ(ColourAt(position), 0U) << position;
  };
  view_.Text(u"old");
  expect_default(0);
  for (const WPARAM scope : {SCF_ALL, SCF_DEFAULT}) {
    CHARFORMAT2W other{};
    other.cbSize = sizeof(other);
    other.dwMask = CFM_FACE | CFM_SIZE | CFM_CHARSET | CFM_COLOR | CFM_BACKCOLOR | CFM_BOLD;
    other.dwEffects = CFE_BOLD;
    other.yHeight = 30 * 20;
    other.crTextColor = RGB(0, 0, 255);
    other.crBackColor = RGB(255, 255, 0);
    lstrcpyW(other.szFaceName, L"Arial");
    SendMessageW(view_.Hwnd(), EM_SETCHARFORMAT, scope, reinterpret_cast<LPARAM>(&other));
  }
  ASSERT_EQ(FormatAt(0).yHeight, 30 * 20);
  view_.Text(u"ab\r\nc");
  for (const std::int32_t position : {0, 1, 4}) expect_default(position);
  // Text written after it, as by the user.
  view_.SelStart(5);
  SendMessageW(view_.Hwnd(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"d"));
  expect_default(5);
}

TEST_F(RichEdit, RichTextThatIsWrittenToTheSelectionStandsThereAsItsSource) {
  view_.Text(u"ab");
  view_.SelStart(1);
  view_.SelText(u"{\\rtf1 \\b rich}");
  EXPECT_EQ(view_.Text(), u"a{\\rtf1 \\b rich}b");
  EXPECT_EQ(FormatAt(10).dwEffects & CFE_BOLD, 0U);
}

TEST_F(RichEdit, SelectionCountsALineEndAsTwo) {
  view_.Text(u"ab\r\ncd\r\nef");
  view_.SelStart(8);
  view_.SelLength(2);
  EXPECT_EQ(view_.SelText(), u"ef");
  view_.SelStart(1);
  view_.SelLength(6);
  EXPECT_EQ(view_.SelText(), u"b\r\ncd");
  EXPECT_EQ(view_.SelLength(), 5) << "a cut inside a line end takes none of it";
}

TEST_F(RichEdit, PositionsOutsideTheTextAreTakenToItsEnds) {
  view_.Text(u"ab");
  view_.SelStart(-5);
  view_.SelLength(-1);
  EXPECT_EQ(view_.SelLength(), 0);
  view_.SelStart(1000);
  view_.SelLength(1000);
  EXPECT_EQ(view_.SelLength(), 0);
  view_.SelStart(1);
  view_.SelLength(0x7FFFFFFF);
  EXPECT_EQ(view_.SelText(), u"b");
}

TEST_F(RichEdit, ColoursOnlyTheSelection) {
  view_.Text(u"ab\r\ncd");
  view_.SelStart(4);
  view_.SelLength(1);
  view_.SelColor(0x0000FF);
  view_.SelBackColor(0xF8D3FF);
  EXPECT_EQ(ColourAt(4), 0x0000FFU);
  EXPECT_EQ(FormatAt(4).crBackColor, 0xF8D3FFU);
  EXPECT_EQ(FormatAt(4).dwEffects & CFE_AUTOBACKCOLOR, 0U);
  EXPECT_EQ(ColourAt(5), 0U);
  EXPECT_NE(FormatAt(5).dwEffects & CFE_AUTOBACKCOLOR, 0U);
}

TEST_F(RichEdit, SwappedPageStandsWithItsColoursAndSelectionAtTheTop) {
  auto page = Page(u"ID\r\n1A0  01 02\r\n1A1  03 04\r\n");
  page->colours.Paint(21, 23, 0x0000FF);
  page->backgrounds.Paint(9, 11, 0x80FFFF);
  view_.SwapPage(page);
  ASSERT_NE(page, nullptr);
  EXPECT_EQ(view_.Text(), u"ID\r\n1A0  01 02\r\n1A1  03 04\r\n");
  EXPECT_EQ(view_.SelLength(), 0);
  EXPECT_EQ(ColourAt(20), 0U);
  EXPECT_EQ(ColourAt(21), 0x0000FFU);
  EXPECT_EQ(ColourAt(22), 0x0000FFU);
  EXPECT_EQ(ColourAt(23), 0U);
  EXPECT_EQ(FormatAt(9).crBackColor, 0x80FFFFU);
  EXPECT_FALSE(view_.CanUndo());
}

TEST_F(RichEdit, SwapScrollsToTheFirstLineAndDropsOldColours) {
  String lines;
  for (int i = 0; i < 200; ++i) lines += u"line\r\n";
  auto page = Page(lines);
  page->colours.Paint(0, 4, 0x0000FF);
  view_.SwapPage(page);
  view_.ScrollToEnd();
  ASSERT_GT(SendMessageW(view_.Hwnd(), EM_GETFIRSTVISIBLELINE, 0, 0), 0);
  page = Page(lines);
  view_.SwapPage(page);
  EXPECT_EQ(SendMessageW(view_.Hwnd(), EM_GETFIRSTVISIBLELINE, 0, 0), 0);
  EXPECT_EQ(ColourAt(0), 0U);
}

TEST_F(RichEdit, LongLinesAreNotWrapped) {
  view_.Text(String(2000, u'x') + u"\r\nend");
  EXPECT_EQ(SendMessageW(view_.Hwnd(), EM_GETLINECOUNT, 0, 0), 2);
}

TEST_F(RichEdit, HoldsFarMoreThanAFullPage) {
  const String text(300000, u'x');
  auto page = Page(text);
  view_.SwapPage(page);
  EXPECT_EQ(view_.Text().size(), text.size());
}

TEST_F(RichEdit, LockStopsTheUserAndNotTheProgram) {
  view_.Locked(true);
  EXPECT_TRUE(view_.Locked());
  EXPECT_NE(GetWindowLongPtrW(view_.Hwnd(), GWL_STYLE) & ES_READONLY, 0);
  view_.Text(u"page");
  view_.SelStart(0);
  view_.SelLength(4);
  view_.SelColor(0xFF0000);
  EXPECT_EQ(ColourAt(0), 0xFF0000U);
  view_.SelText(u"more");
  EXPECT_EQ(view_.Text(), u"moreage");
  SendMessageW(view_.Hwnd(), WM_CHAR, L'x', 0);
  EXPECT_EQ(view_.Text(), u"moreage");
  EXPECT_NE(GetWindowLongPtrW(view_.Hwnd(), GWL_STYLE) & ES_READONLY, 0);
}

TEST_F(RichEdit, UndoTakesBackAReplacedSelection) {
  view_.Text(u"ab");
  EXPECT_FALSE(view_.CanUndo());
  view_.SelStart(1);
  view_.SelText(u"X");
  ASSERT_TRUE(view_.CanUndo());
  view_.Undo();
  EXPECT_EQ(view_.Text(), u"ab");
}

TEST_F(RichEdit, RichTextCarriesColoursFromHereToHere) {
  view_.Text(u"色つき");
  view_.SelStart(0);
  view_.SelLength(1);
  view_.SelColor(0x0000FF);
  const String rtf = view_.TextRTF();
  EXPECT_EQ(rtf.substr(0, 5), u"{\\rtf");
  view_.Text(u"gone");
  const ScratchFolder folder;
  ASSERT_TRUE(folder.Put(u"page.rtf", NarrowText(rtf)));
  EXPECT_TRUE(view_.LoadFile(folder / u"page.rtf"));
  EXPECT_EQ(view_.Text().substr(0, 3), u"色つき");
  EXPECT_EQ(ColourAt(0), 0x0000FFU);
  view_.SelStart(1);
  view_.SelLength(1);
  EXPECT_NE(view_.SelRTF().find(u"{\\rtf"), String::npos);
}

TEST_F(RichEdit, SavesAndLoadsRichText) {
  const ScratchFolder folder;
  auto page = Page(u"1A0  01\r\n");
  page->colours.Paint(5, 7, 0x0000FF);
  view_.SwapPage(page);
  ASSERT_TRUE(view_.SaveFile(folder / u"lglist.dat", RichTextView::FileFormat::kRichText));
  view_.Text(u"");
  ASSERT_TRUE(view_.LoadFile(folder / u"lglist.dat"));
  EXPECT_EQ(view_.Text().substr(0, 7), u"1A0  01");
  EXPECT_EQ(ColourAt(5), 0x0000FFU);
}

TEST_F(RichEdit, SavesPlainTextInTheCodePage) {
  const ScratchFolder folder;
  view_.Text(u"a\r\n\U0001F697\r\n");
  ASSERT_TRUE(view_.SaveFile(folder / u"KS.txt", RichTextView::FileFormat::kPlainText));
  EXPECT_EQ(folder.Content(u"KS.txt"), "a\r\n?\r\n");
  EXPECT_FALSE(view_.SaveFile(folder / u"none\\KS.txt", RichTextView::FileFormat::kPlainText));
}

TEST_F(RichEdit, WithoutLeaveToMakeASecondFileTheOldOneIsWrittenInPlace) {
  const ScratchFolder folder;
  ASSERT_TRUE(folder.Put(u"lglist.dat", "old"));
  ASSERT_TRUE(CreateDirectoryW(Wide(folder / u"lglist.da~"), nullptr));
  EXPECT_TRUE(view_.SaveFile(folder / u"lglist.dat", RichTextView::FileFormat::kRichText));
  EXPECT_TRUE(folder.Content(u"lglist.dat").starts_with("{\\rtf"));
}

TEST_F(RichEdit, AReadOnlyFileIsNotReplacedAndLeavesNothingBeside) {
  const ScratchFolder folder;
  ASSERT_TRUE(folder.Put(u"lglist.dat", "old"));
  SetFileAttributesW(Wide(folder / u"lglist.dat"), FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(view_.SaveFile(folder / u"lglist.dat", RichTextView::FileFormat::kRichText));
  EXPECT_EQ(folder.Content(u"lglist.dat"), "old");
  EXPECT_EQ(GetFileAttributesW(Wide(folder / u"lglist.da~")), INVALID_FILE_ATTRIBUTES);
}

TEST_F(RichEdit, AFileThatIsNoRichTextLeavesTheContent) {
  const ScratchFolder folder;
  ASSERT_TRUE(folder.Put(u"lglist.dat", "\xFF\xFE broken"));
  view_.Text(u"kept");
  EXPECT_FALSE(view_.LoadFile(folder / u"lglist.dat"));
  EXPECT_FALSE(view_.LoadFile(folder / u"missing.dat"));
  EXPECT_EQ(view_.Text(), u"kept");
}

TEST_F(RichEdit, RichTextThatTheControlCannotTakeLeavesTheContent) {
  const ScratchFolder folder;
  ASSERT_TRUE(folder.Put(u"lglist.dat", "{\\rtf1 new}"));
  for (const DWORD error : {DWORD{ERROR_NOT_ENOUGH_MEMORY}, DWORD{0}}) {
    view_.Text(u"kept");
    view_.SelStart(1);
    view_.SelLength(1);
    view_.SelColor(0x0000FF);
    {
      const RefusedStreams once(view_.Hwnd(), error, 1);
      EXPECT_FALSE(view_.LoadFile(folder / u"lglist.dat")) << error;
      EXPECT_EQ(view_.Text().substr(0, 4), u"kept") << error;
      EXPECT_EQ(ColourAt(1), 0x0000FFU) << error;
    }
    view_.Text(u"kept");
    const RefusedStreams always(view_.Hwnd(), error);
    EXPECT_FALSE(view_.LoadFile(folder / u"lglist.dat")) << error;
    EXPECT_EQ(view_.Text(), u"kept") << error;
  }
  EXPECT_TRUE(view_.LoadFile(folder / u"lglist.dat"));
  EXPECT_EQ(view_.Text().substr(0, 3), u"new");
}

TEST_F(RichEdit, NoTextHasTheSystemsColour) {
  const ScratchFolder folder;
  ASSERT_TRUE(folder.Put(u"lglist.dat",
                         "{\\rtf1{\\colortbl ;\\red255\\green0\\blue0;}"
                         "a\\cf1 b\\cf0 c\\cf1\\plain d}"));
  ASSERT_TRUE(view_.LoadFile(folder / u"lglist.dat"));
  const auto expect_own_colours = [this](const std::vector<COLORREF>& colours) {
    for (std::size_t i = 0; i < colours.size(); ++i) {
      const CHARFORMAT2W format = FormatAt(static_cast<std::int32_t>(i));
      EXPECT_EQ(format.dwEffects & CFE_AUTOCOLOR, 0U) << i;
      EXPECT_EQ(format.crTextColor, colours[i]) << i;
    }
  };
  expect_own_colours({0, 0x0000FF, 0, 0});
  view_.Text(u"ab");
  expect_own_colours({0, 0});
  auto page = Page(u"abc");
  page->colours.Paint(1, 2, 0x0000FF);
  view_.SwapPage(page);
  expect_own_colours({0, 0x0000FF, 0});
  EXPECT_EQ(static_cast<COLORREF>(SendMessageW(view_.Hwnd(), EM_SETBKGNDCOLOR, 0, 0)),
            RGB(255, 255, 255));
}

TEST_F(RichEdit, TellsASelectionThatAWriteMovedOnce) {
  view_.Text(u"abc");
  selection_changes_ = 0;
  view_.SelStart(1);
  EXPECT_EQ(selection_changes_, 1);
  view_.SelText(u"");
  EXPECT_EQ(selection_changes_, 1) << "nothing was selected, nothing moved";
  auto page = Page(u"page");
  view_.SwapPage(page);
  EXPECT_EQ(selection_changes_, 2);
  view_.SwapPage(page);
  EXPECT_EQ(selection_changes_, 2);
}

/// Stands in for a control whose system has composition colours.
LRESULT CALLBACK AnswerColours(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                               UINT_PTR /*id*/, DWORD_PTR colours) {
  auto* held = reinterpret_cast<COMPCOLOR*>(colours);
  auto* asked = reinterpret_cast<COMPCOLOR*>(lparam);
  if (message == EM_GETIMECOLOR) std::copy_n(held, 4, asked);
  if (message == EM_SETIMECOLOR) std::copy_n(asked, 4, held);
  const bool answered = message == EM_GETIMECOLOR || message == EM_SETIMECOLOR;
  return answered ? TRUE : DefSubclassProc(window, message, wparam, lparam);
}

TEST_F(RichEdit, TheSecondCompositionColourBecomesBlackOnWhite) {
  std::array<COMPCOLOR, 4> colours{};
  for (DWORD i = 0; i < 4; ++i) colours[i] = {0x10 + i, 0x20 + i, 0x30 + i};
  const std::array<COMPCOLOR, 4> before = colours;
  SetWindowSubclass(view_.Hwnd(), &AnswerColours, 2, reinterpret_cast<DWORD_PTR>(colours.data()));
  view_.PlainCompositionColours();
  RemoveWindowSubclass(view_.Hwnd(), &AnswerColours, 2);
  EXPECT_EQ(colours[1].crText, RGB(0, 0, 0));
  EXPECT_EQ(colours[1].crBackground, RGB(255, 255, 255));
  EXPECT_EQ(colours[1].dwEffects, before[1].dwEffects);
  for (const std::size_t i : {0U, 2U, 3U}) {
    EXPECT_EQ(colours[i].crText, before[i].crText) << i;
    EXPECT_EQ(colours[i].crBackground, before[i].crBackground) << i;
  }
}

TEST_F(RichEdit, TabLeavesTheViewAndEveryOtherKeyStays) {
  MSG tab{};
  tab.message = WM_KEYDOWN;
  tab.wParam = VK_TAB;
  const auto code =
      SendMessageW(view_.Hwnd(), WM_GETDLGCODE, VK_TAB, reinterpret_cast<LPARAM>(&tab));
  EXPECT_EQ(code & (DLGC_WANTTAB | DLGC_WANTALLKEYS), 0);
  EXPECT_NE(SendMessageW(view_.Hwnd(), WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS, 0);
}

}  // namespace
}  // namespace tolvane::platform::windows
