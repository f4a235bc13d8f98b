#pragma once

#include "platform/event_gate.h"
#include "platform/timer.h"
#include "platform/windows/window_parts/base_window.h"

namespace tolvane::platform::windows {

/// A worker form: a window that is never shown and carries the timer of its worker.
class WorkerWindow final : public BaseWindow<WorkerWindow>, public Timer {
 public:
  static constexpr const wchar_t* kClassName = L"TolvaneWorker";
  static void AdjustClass(WNDCLASSEXW&) {}

  WorkerWindow(EventGate& gate, HINSTANCE instance, std::int32_t interval);
  ~WorkerWindow() override { Destroy(); }

  [[nodiscard]] bool Enabled() const override { return enabled_; }
  void Enabled(bool enabled) override;
  [[nodiscard]] std::int32_t Interval() const override { return interval_; }
  void OnTick(std::function<void()> handler) override { handler_ = std::move(handler); }
  /// `handler` is told, at once, when the timer begins to run and when it has ended. A tick that
  /// stops it for its own length is no end.
  void OnRunning(std::function<void(bool running)> handler) { on_running_ = std::move(handler); }

  LRESULT HandleMessage(UINT message, WPARAM wparam, LPARAM lparam);

 private:
  void Tick(UINT_PTR id);
  void RunTick();
  void TellRunning();

  EventGate& gate_;
  std::int32_t interval_;
  std::function<void()> handler_;
  std::function<void(bool)> on_running_;
  // A new number for each period: a tick that was due before the timer was stopped has an old one
  // and is dropped, wherever it waited.
  UINT_PTR id_ = 0;
  bool enabled_ = false;
  bool ticking_ = false;
  bool told_running_ = false;
  bool waiting_ = false;  // a tick stands in the gate's line; a second one would add nothing
};

}  // namespace tolvane::platform::windows
