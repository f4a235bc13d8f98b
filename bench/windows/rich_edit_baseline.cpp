#include "bench/windows/rich_edit_baseline.h"

#include "platform/windows/rich_text/line_ends.h"
#include "platform/windows/rich_text/rich_edit_stream.h"
#include "platform/windows/system/text.h"

namespace tolvane::bench {

using namespace platform::windows;

RichEditBaseline::RichEditBaseline(platform::CodePage& code_page)
    : hidden_(code_page), visible_(code_page) {}

RichEditBaseline::~RichEditBaseline() {
  if (window_ != nullptr) DestroyWindow(window_);
}

bool RichEditBaseline::Create(HWND like) {
  RECT bounds{};
  GetWindowRect(like, &bounds);
  window_ = CreateWindowExW(0, WC_STATICW, L"rich-edit baseline",
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, bounds.left,
                            bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  const auto nothing = [](auto...) {};
  if (!hidden_.Create(window_, 1, nothing, nothing)) return false;
  if (!visible_.Create(window_, 2, nothing, nothing)) return false;
  ShowWindow(hidden_.Hwnd(), SW_HIDE);
  MoveWindow(hidden_.Hwnd(), 0, 0, 100, 50, FALSE);
  RECT client{};
  GetClientRect(window_, &client);
  MoveWindow(visible_.Hwnd(), 0, 0, client.right, client.bottom, FALSE);
  // In the baseline's favour: no notifications to the parent and no undo.
  for (const auto* view : {&hidden_, &visible_}) {
    SendMessageW(view->Hwnd(), EM_SETEVENTMASK, 0, 0);
    SendMessageW(view->Hwnd(), EM_SETUNDOLIMIT, 0, 0);
  }
  return true;
}

void RichEditBaseline::Prepare(const platform::RichTextPage& page) {
  text_ = page.text;
  String of_control;
  for (const char16_t unit : page.text) {
    if (unit != u'\n') of_control += unit;
  }
  regions_.clear();
  for (const platform::ColourRun& run : page.colours.Runs()) {
    const auto place = [&of_control](std::int32_t position) {
      return static_cast<std::int32_t>(
          ControlPosition(of_control, static_cast<std::size_t>(position)));
    };
    regions_.push_back({place(run.start), place(run.end), run.colour});
  }
}

void RichEditBaseline::PaintRegion(const platform::ColourRun& run) const {
  CHARRANGE range{run.start, run.end};
  SendMessageW(hidden_.Hwnd(), EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_COLOR;
  format.crTextColor = static_cast<COLORREF>(run.colour);
  SendMessageW(hidden_.Hwnd(), EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

void RichEditBaseline::Tick() {
  SetWindowTextW(hidden_.Hwnd(), Wide(text_));
  for (const platform::ColourRun& run : regions_) PaintRegion(run);
  // Shows checks that the page has arrived.
  static_cast<void>(StreamIn(visible_.Hwnd(), StreamOut(hidden_.Hwnd(), SF_RTF)));
  UpdateWindow(visible_.Hwnd());
}

bool RichEditBaseline::Shows(const platform::RichTextPage& page) const {
  // The control's own rich text ends in one line end more.
  return visible_.Text().starts_with(page.text);
}

}  // namespace tolvane::bench
