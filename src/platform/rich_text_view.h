#pragma once

#include <cstdint>
#include <memory>

#include "platform/rich_text_page.h"
#include "platform/string.h"

namespace tolvane::platform {

/// RTB_MainView, the visible rich text view. What is read is at any moment the content as last
/// written by anyone: program, user or SwapPage. Positions count a line end, CR LF, as two.
/// Nothing here lets an event through.
class RichTextView {
 public:
  enum class FileFormat : std::int32_t { kRichText = 0, kPlainText = 1 };  // the flags of SaveFile

  virtual ~RichTextView() = default;

  /// The whole content as plain text. Writing replaces everything and drops all formats.
  [[nodiscard]] virtual String Text() const = 0;
  virtual void Text(StringView text) = 0;

  /// The whole content as Rich Text Format.
  [[nodiscard]] virtual String TextRTF() const = 0;

  /// Replaces the whole content by `page` in one step and hands back, in `page`, storage to build
  /// the next one in; its content is stale. The selection is then empty at 0, the first line on
  /// top, on every surface.
  virtual void SwapPage(std::unique_ptr<RichTextPage>& page) = 0;

  virtual void SelStart(std::int32_t position) = 0;
  [[nodiscard]] virtual std::int32_t SelLength() const = 0;
  /// Set after SelStart.
  virtual void SelLength(std::int32_t length) = 0;
  virtual void SelColor(std::int32_t colour) = 0;
  /// The background of the selection (EM_GETCHARFORMAT, CFM_BACKCOLOR, EM_SETCHARFORMAT).
  virtual void SelBackColor(std::int32_t colour) = 0;
  [[nodiscard]] virtual String SelText() const = 0;
  virtual void SelText(StringView text) = 0;
  [[nodiscard]] virtual String SelRTF() const = 0;

  /// True while the user cannot change the content; the program always can. Locked(true) is said
  /// ahead of a run: a view on a screen then takes the memory of the largest page and lays it out
  /// once, tens of milliseconds, so that no page of the run has to.
  [[nodiscard]] virtual bool Locked() const = 0;
  virtual void Locked(bool locked) = 0;

  /// Repaints at once.
  virtual void Refresh() = 0;
  /// WM_VSCROLL with SB_BOTTOM.
  virtual void ScrollToEnd() = 0;
  /// Makes the second of the four composition colours black text on white (EM_SETIMECOLOR).
  virtual void PlainCompositionColours() = 0;

  [[nodiscard]] virtual bool CanUndo() const = 0;
  virtual void Undo() = 0;

  /// Writes the content to `path`, replacing the file; plain text is in the system code page.
  /// False when the file could not be written; an old one then stays.
  [[nodiscard]] virtual bool SaveFile(StringView path, FileFormat format) = 0;
  /// Replaces the content by a Rich Text Format file. False when it could not be read; the content
  /// then stays.
  [[nodiscard]] virtual bool LoadFile(StringView path) = 0;
};

}  // namespace tolvane::platform
