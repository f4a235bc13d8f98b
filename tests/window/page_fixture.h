#pragma once

#include <string>
#include <vector>

#include "tests/window/log_fixture.h"

namespace tolvane::window {

/// A test with the real program that works on its page by the commands of the pop-up.
class PageCommandsBase : public LogRun {
 protected:
  /// Menu items by their ids.
  using Items = std::vector<int>;

  /// The program on one adapter whose bus is silent, with this text on its page.
  void StartWith(const std::wstring& page);
  void WriteOver(const std::wstring& page) const;
  [[nodiscard]] std::wstring Page() const;

  /// Positions of the control, where a line end counts one.
  void Select(int start, int end) const;
  /// Selects something else first: the menu follows changes of the selection.
  void SetCaret(int position) const;
  /// A command, carried out when this returns, with what follows from it: the program is idle or in
  /// a yield of a run.
  void Do(int command) const;

  /// The open pop-up, null for none.
  [[nodiscard]] HWND PopUp() const;
  /// Opens the pop-up over `target` by the message that asks for it, looks which of its items can
  /// be chosen, in its order, and closes it.
  [[nodiscard]] Items OpenPopUp(HWND target, UINT message = WM_RBUTTONUP,
                                LPARAM lparam = MAKELPARAM(5, 5)) const;
  /// Over the page's control.
  [[nodiscard]] Items OpenPopUp() const;
  /// Closes the one that is open; tries until it has gone.
  void ClosePopUp() const;

  /// Copies; the clipboard then has the text in both forms.
  void ExpectCopied(int command, const std::wstring& text) const;

 private:
  [[nodiscard]] Items EnabledItems() const;
};

}  // namespace tolvane::window
