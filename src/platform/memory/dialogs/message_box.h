#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/event_gate.h"
#include "platform/memory/system/journal.h"
#include "platform/message_box.h"

namespace tolvane::platform::memory {

/// Answers each box at once, from a script, and remembers what it said.
class MessageBox final : public platform::MessageBox {
 public:
  enum class Kind : std::uint8_t { kCritical, kPlain, kYesNo };
  struct Shown {
    Kind kind;
    String text;
    String title;
  };

  MessageBox(Journal& journal, EventGate& gate) : journal_(journal), gate_(gate) {}

  void Critical(StringView text, StringView title) override { Show(Kind::kCritical, text, title); }
  void Plain(StringView text, StringView title) override { Show(Kind::kPlain, text, title); }
  /// The next scripted answer; no without one.
  bool AskYesNo(StringView text, StringView title) override;

  void Answer(bool yes) { answers_.push_back(yes); }
  /// What happens while a box is up: the user or the timer reaching the program through the box's
  /// message loop, which opens the gate.
  void WhileShown(std::function<void()> handler) { while_shown_ = std::move(handler); }

  [[nodiscard]] const std::vector<Shown>& Boxes() const { return boxes_; }

 private:
  void Show(Kind kind, StringView text, StringView title);

  Journal& journal_;
  EventGate& gate_;
  std::vector<Shown> boxes_;
  std::deque<bool> answers_;
  std::function<void()> while_shown_;
};

}  // namespace tolvane::platform::memory
