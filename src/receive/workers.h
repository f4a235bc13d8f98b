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

/// The tables of a worker. They hold what its last run left until the next one clears them. On the
/// heap, hundreds of kilobytes each, so that a main window fits on a stack.
template <typename Table>
struct WorkerTables {
  std::unique_ptr<Table> frames = std::make_unique<Table>();
  std::unique_ptr<typename ViewTableOf<Table>::Type> highlights =
      std::make_unique<typename ViewTableOf<Table>::Type>();
};

/// One of the four workers, with what it keeps for the life of its form.
template <WorkerKind kKind>
class WorkerForm final : public Worker {
 public:
  using Table = typename FrameTableOf<kKind>::Type;

  /// `tables` must outlive it.
  WorkerForm(const RunParts& parts, platform::Timer& TimerBackView,
             const WorkerTables<Table>& tables);
  WorkerForm(const WorkerForm&) = delete;  // the timer's handler and the tick point into it
  WorkerForm& operator=(const WorkerForm&) = delete;

  void Open_CANUSB(platform::AutomationObject* objExcel, ELM327_Info& device, const CANUSB& CAN_u,
                   CAN_DB& CAN_d) override;
  std::int32_t Open_InterfaceCAN(platform::AutomationObject* objExcel, ELM327_Info& device,
                                 const InterfaceCAN& IfCan_u, CAN_DB_Interface& IfCan_d) override;
  void Open_KvaserCAN(platform::AutomationObject* objExcel, ELM327_Info& device,
                      const KvaserCAN& kvCan_u, CAN_DB_Kvaser& kvCan_d) override;

 private:
  std::int32_t Open(AdapterKind adapter, Binding& binding, ELM327_Info& device,
                    platform::AutomationObject* objExcel);

  RunParts parts_;
  platform::Timer& TimerBackView_;  // on from the start of a run to its end, except inside a tick
  std::int32_t Device_Timer_Kind_ = 0;  // of the last run
  const WorkerTables<Table>& tables_;
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

  WorkerTables<CAN_ReadDB> FormBG_tables;
  WorkerTables<CAN_ReadDB> FormBG2_tables;
  WorkerTables<CAN_ReadDB29> FormBG_29_tables;
  WorkerTables<CAN_ReadDB29> FormBG2_29_tables;
  tolvane::FormBG FormBG;
  tolvane::FormBG2 FormBG2;
  tolvane::FormBG_29 FormBG_29;
  tolvane::FormBG2_29 FormBG2_29;
};

}  // namespace tolvane
