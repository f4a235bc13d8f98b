#pragma once

#include <cstdint>
#include <memory>

#include "logging/excel_outputdb.h"
#include "platform/timer.h"
#include "receive/adapters/binding.h"
#include "receive/run_parts.h"
#include "receive/tables/frame_table_of.h"
#include "receive/worker.h"
#include "run/adapter_kind.h"
#include "run/worker_kind.h"
#include "view/tick.h"

namespace tolvane {

/// One of the four workers, with what it keeps for the life of its form. The tables hold what the
/// last run left until the next run clears them.
template <WorkerKind kKind>
class WorkerForm final : public Worker {
 public:
  using Table = typename FrameTableOf<kKind>::Type;

  WorkerForm(const RunParts& parts, platform::Timer& TimerBackView);
  WorkerForm(const WorkerForm&) = delete;  // the timer's handler and the tick point into it
  WorkerForm& operator=(const WorkerForm&) = delete;

  void Open_CANUSB(platform::AutomationObject* objExcel, ELM327_Info& device, const CANUSB& CAN_u,
                   CAN_DB& CAN_d) override;
  std::int32_t Open_InterfaceCAN(platform::AutomationObject* objExcel, ELM327_Info& device,
                                 const InterfaceCAN& IfCan_u, CAN_DB_Interface& IfCan_d) override;
  void Open_KvaserCAN(platform::AutomationObject* objExcel, ELM327_Info& device,
                      const KvaserCAN& kvCan_u, CAN_DB_Kvaser& kvCan_d) override;

  /// For tests: neither page nor log tells the bytes behind a frame's length, the flags of a key, a
  /// time before it is rounded, or what a run that cannot start has left.
  [[nodiscard]] const Table& Frames() const { return *frames_; }

 private:
  std::int32_t Open(AdapterKind adapter, Binding& binding, ELM327_Info& device,
                    platform::AutomationObject* objExcel);

  RunParts parts_;
  platform::Timer& TimerBackView_;  // on from the start of a run to its end, except inside a tick
  std::int32_t Device_Timer_Kind_ = 0;  // of the last run
  // On the heap, hundreds of kilobytes each, so that a main window fits on a stack.
  std::unique_ptr<Table> frames_ = std::make_unique<Table>();
  std::unique_ptr<typename ViewTableOf<Table>::Type> highlights_ =
      std::make_unique<typename ViewTableOf<Table>::Type>();
  Excel_OutputDB log_;
  Tick<Table> tick_;
};

using FormBG = WorkerForm<WorkerKind::FormBG>;
using FormBG2 = WorkerForm<WorkerKind::FormBG2>;
using FormBG_29 = WorkerForm<WorkerKind::FormBG_29>;
using FormBG2_29 = WorkerForm<WorkerKind::FormBG2_29>;

extern template class WorkerForm<WorkerKind::FormBG>;
extern template class WorkerForm<WorkerKind::FormBG2>;
extern template class WorkerForm<WorkerKind::FormBG_29>;
extern template class WorkerForm<WorkerKind::FormBG2_29>;

/// The four of them, made once with the main window.
struct Workers {
  explicit Workers(const RunParts& parts);

  [[nodiscard]] Worker& Of(WorkerKind kind);

  tolvane::FormBG FormBG;
  tolvane::FormBG2 FormBG2;
  tolvane::FormBG_29 FormBG_29;
  tolvane::FormBG2_29 FormBG2_29;
};

}  // namespace tolvane
