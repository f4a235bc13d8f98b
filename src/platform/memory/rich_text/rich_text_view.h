#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/memory/system/file_system.h"
#include "platform/memory/system/journal.h"
#include "platform/rich_text_page.h"
#include "platform/rich_text_view.h"

namespace tolvane::platform::memory {

/// A rich text view without a window. Undo takes back the last change of the selection's text or
/// colours; what replaces the whole content cannot be undone.
class RichTextView final : public platform::RichTextView {
 public:
  /// `files` carries SaveFile and LoadFile. What happens once in a while goes to `journal`; swaps,
  /// refreshes and the selection are only counted or kept.
  RichTextView(Journal& journal, FileSystem& files) : journal_(journal), files_(files) {}

  [[nodiscard]] String Text() const override { return page_->text; }
  void Text(StringView text) override;
  [[nodiscard]] String TextRTF() const override;
  /// As LoadFile with a file that holds `rtf`: false for what is no Rich Text Format.
  [[nodiscard]] bool TextRTF(StringView rtf);
  void SwapPage(std::unique_ptr<RichTextPage>& page) override;

  void SelStart(std::int32_t position) override;
  [[nodiscard]] std::int32_t SelLength() const override { return sel_end_ - sel_start_; }
  void SelLength(std::int32_t length) override;
  void SelColor(std::int32_t colour) override;
  void SelBackColor(std::int32_t colour) override;
  [[nodiscard]] String SelText() const override;
  /// The new text has the default colours; the selection is then empty behind it.
  void SelText(StringView text) override;
  [[nodiscard]] String SelRTF() const override;

  [[nodiscard]] bool Locked() const override { return locked_; }
  void Locked(bool locked) override;

  void Refresh() override { ++refreshes_; }
  void ScrollToEnd() override { journal_.Note("RTB_MainView.ScrollToEnd()"); }
  void PlainCompositionColours() override {
    journal_.Note("RTB_MainView.PlainCompositionColours()");
  }

  [[nodiscard]] bool CanUndo() const override { return undo_.has_value(); }
  void Undo() override;

  [[nodiscard]] bool SaveFile(StringView path, FileFormat format) override;
  [[nodiscard]] bool LoadFile(StringView path) override;

  /// Whether reading rich text fails, whatever it is, as in a control without memory.
  void RefuseRichText(bool refuse) { refuses_rich_text_ = refuse; }

  /// The user's typing over the selection: nothing while the view is locked.
  void UserTypes(StringView text);

  // What happened so far.
  [[nodiscard]] const RichTextPage& Page() const { return *page_; }
  [[nodiscard]] std::int32_t Swaps() const { return swaps_; }
  [[nodiscard]] std::int32_t Refreshes() const { return refreshes_; }

 private:
  void Replace(RichTextPage page);
  void StartAtTheTop();

  Journal& journal_;
  FileSystem& files_;
  std::unique_ptr<RichTextPage> page_ = std::make_unique<RichTextPage>();
  std::optional<RichTextPage> undo_;
  std::int32_t sel_start_ = 0;
  std::int32_t sel_end_ = 0;
  bool locked_ = false;
  bool refuses_rich_text_ = false;
  std::int32_t swaps_ = 0;
  std::int32_t refreshes_ = 0;
};

}  // namespace tolvane::platform::memory
