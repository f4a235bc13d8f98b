#include "platform/memory/rich_text/rich_text_view.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/byte_text.h"
#include "platform/memory/rich_text/rtf_reader.h"
#include "platform/utf8.h"
#include "view/page_rtf.h"

namespace tolvane::platform::memory {

namespace {

constexpr std::size_t kLargestFile = 64 * 1024 * 1024;  // bytes

/// Paints what `from` has between `start` and `end` onto `to`, moved by `shift` characters.
void CopyRuns(const ColourRuns& from, std::int32_t start, std::int32_t end, std::int32_t shift,
              ColourRuns& to) {
  for (const ColourRun& run : from.Runs()) {
    to.Paint(std::max(run.start, start) + shift, std::min(run.end, end) + shift, run.colour);
  }
}

RichTextPage Cut(const RichTextPage& page, std::int32_t start, std::int32_t end) {
  RichTextPage cut;
  cut.text =
      page.text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
  CopyRuns(page.colours, start, end, -start, cut.colours);
  CopyRuns(page.backgrounds, start, end, -start, cut.backgrounds);
  return cut;
}

void Append(const RichTextPage& piece, RichTextPage& page) {
  const auto start = static_cast<std::int32_t>(page.text.size());
  const auto length = static_cast<std::int32_t>(piece.text.size());
  page.text += piece.text;
  CopyRuns(piece.colours, 0, length, start, page.colours);
  CopyRuns(piece.backgrounds, 0, length, start, page.backgrounds);
}

String Rtf(const RichTextPage& page) {
  std::string rtf;
  WritePageRtf(page, rtf);
  return WideText(rtf);
}

}  // namespace

void RichTextView::Text(StringView text) {
  journal_.Assign("RTB_MainView", "Text", text);
  Replace({String(text), {}, {}});
}

void RichTextView::Locked(bool locked) {
  locked_ = locked;
  journal_.Assign("RTB_MainView", "Locked", locked);
}

String RichTextView::TextRTF() const { return Rtf(*page_); }

bool RichTextView::TextRTF(StringView rtf) {
  auto page = ReadRtf(rtf);
  if (!page || refuses_rich_text_) return false;
  Replace(std::move(*page));
  return true;
}

void RichTextView::SwapPage(std::unique_ptr<RichTextPage>& page) {
  page_.swap(page);
  StartAtTheTop();
  ++swaps_;
}

void RichTextView::SelStart(std::int32_t position) {
  sel_start_ = std::clamp(position, 0, static_cast<std::int32_t>(page_->text.size()));
  sel_end_ = sel_start_;
}

void RichTextView::SelLength(std::int32_t length) {
  const std::int32_t room = static_cast<std::int32_t>(page_->text.size()) - sel_start_;
  sel_end_ = sel_start_ + std::clamp(length, 0, room);
}

void RichTextView::SelColor(std::int32_t colour) {
  undo_ = *page_;
  page_->colours.Paint(sel_start_, sel_end_, colour);
}

void RichTextView::SelBackColor(std::int32_t colour) {
  undo_ = *page_;
  page_->backgrounds.Paint(sel_start_, sel_end_, colour);
}

String RichTextView::SelText() const { return Cut(*page_, sel_start_, sel_end_).text; }

void RichTextView::SelText(StringView text) {
  RichTextPage edited = Cut(*page_, 0, sel_start_);
  edited.text += text;
  const auto caret = static_cast<std::int32_t>(edited.text.size());
  Append(Cut(*page_, sel_end_, static_cast<std::int32_t>(page_->text.size())), edited);
  undo_ = std::exchange(*page_, std::move(edited));
  sel_start_ = sel_end_ = caret;
}

String RichTextView::SelRTF() const { return Rtf(Cut(*page_, sel_start_, sel_end_)); }

void RichTextView::Undo() {
  if (!undo_) return;
  RichTextPage before = std::move(*undo_);
  Replace(std::move(before));
}

bool RichTextView::SaveFile(StringView path, FileFormat format) {
  journal_.Note("RTB_MainView.SaveFile(\"" + ToUtf8(path) + "\")");
  return files_.Replace(path, format == FileFormat::kRichText ? TextRTF() : Text());
}

bool RichTextView::LoadFile(StringView path) {
  journal_.Note("RTB_MainView.LoadFile(\"" + ToUtf8(path) + "\")");
  const auto file = files_.ReadBinary(path, kLargestFile);
  if (!file) return false;
  return TextRTF(WideText({reinterpret_cast<const char*>(file->bytes.data()), file->bytes.size()}));
}

void RichTextView::UserTypes(StringView text) {
  if (!locked_) SelText(text);
}

void RichTextView::Replace(RichTextPage page) {
  *page_ = std::move(page);
  StartAtTheTop();
}

void RichTextView::StartAtTheTop() {
  undo_.reset();
  sel_start_ = sel_end_ = 0;
}

}  // namespace tolvane::platform::memory
