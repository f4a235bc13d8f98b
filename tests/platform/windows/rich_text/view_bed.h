#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "platform/windows/rich_text/rich_edit_view.h"
#include "platform/windows/system/code_page.h"
#include "tests/platform/windows/system/scratch_folder.h"

namespace tolvane::platform::windows {

/// RTB_MainView in a visible window of its own, locked as during a run.
class LiveView : public testing::Test {
 protected:
  void SetUp() override {
    parent_ = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP | WS_CLIPCHILDREN, 0, 0, 620, 420,
                              nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_TRUE(view_.Create(
        parent_, kId, [this] { ++selection_changes_; }, [this](bool) { ++context_menus_; }));
    MoveWindow(view_.Hwnd(), 10, 10, 600, 400, FALSE);
    ShowWindow(parent_, SW_SHOWNA);
    UpdateWindow(view_.Hwnd());
    view_.Locked(true);
  }
  void TearDown() override { DestroyWindow(parent_); }

  static std::unique_ptr<RichTextPage> Page(StringView text) {
    auto page = std::make_unique<RichTextPage>();
    page->text = text;
    return page;
  }
  void Swap(StringView text) {
    auto page = Page(text);
    view_.SwapPage(page);
  }
  /// A file that holds `rtf` becomes the content.
  [[nodiscard]] bool Load(std::string_view rtf) {
    const ScratchFolder folder;
    return folder.Put(u"page.rtf", rtf) && view_.LoadFile(folder / u"page.rtf");
  }
  static String Lines(int count) {
    String text;
    for (int i = 0; i < count; ++i) text += u"1A0  8   01 02 03 04 05 06 07 08   100ms\r\n";
    return text;
  }

  /// The surface, null while it is hidden.
  [[nodiscard]] HWND Surface() const {
    const HWND surface = FindWindowExW(parent_, nullptr, LiveSurface::kClassName, nullptr);
    return IsWindowVisible(surface) ? surface : nullptr;
  }
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return SendMessageW(view_.Hwnd(), message, wparam, lparam);
  }
  [[nodiscard]] int ScrolledBy(HWND window, int bar) const {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_POS;
    GetScrollInfo(window, bar, &info);
    return info.nPos;
  }
  /// Format of the character at a page position; fills the control.
  CHARFORMAT2W FormatAt(std::int32_t position) {
    view_.SelStart(position);
    view_.SelLength(1);
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    return format;
  }
  COLORREF ColourAt(std::int32_t position) {
    const CHARFORMAT2W format = FormatAt(position);
    return (format.dwEffects & CFE_AUTOCOLOR) != 0 ? 0 : format.crTextColor;
  }

  static constexpr int kId = 7;

  WindowsCodePage code_page_;
  RichEditView view_{code_page_};
  HWND parent_ = nullptr;
  int selection_changes_ = 0;
  int context_menus_ = 0;
};

}  // namespace tolvane::platform::windows
