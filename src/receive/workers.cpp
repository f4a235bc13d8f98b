#include "receive/workers.h"

#include "receive/adapters/canusb_binding.h"
#include "receive/adapters/interface_binding.h"
#include "receive/adapters/kvaser_binding.h"
#include "receive/receive.h"

namespace tolvane {

template <WorkerKind kKind>
WorkerForm<kKind>::WorkerForm(const RunParts& parts, platform::Timer& TimerBackView,
                              const WorkerTables<Table>& tables)
    : parts_(parts),
      TimerBackView_(TimerBackView),
      tables_(tables),
      log_({.events = parts.platform.events,
            .files = parts.platform.files,
            .folders = parts.platform.folders,
            .wall_clock = parts.platform.wall_clock}),
      tick_(kKind,
            {.TimerBackView = TimerBackView,
             .qxt100 = parts.platform.qxt100,
             .events = parts.platform.events,
             .RTB_MainView = parts.window.RTB_MainView,
             .RxFlag = parts.RxFlag,
             .Device_Timer_Kind = Device_Timer_Kind_},
            *tables.frames, *tables.highlights) {}

template <WorkerKind kKind>
void WorkerForm<kKind>::Open_CANUSB(platform::AutomationObject* objExcel, ELM327_Info& device,
                                    const CANUSB& CAN_u, CAN_DB& CAN_d) {
  CanusbBinding binding(parts_.platform.canusbdrv, CAN_u, CAN_d);
  Open(AdapterKind::kCanusb, binding, device, objExcel);
}

template <WorkerKind kKind>
std::int32_t WorkerForm<kKind>::Open_InterfaceCAN(platform::AutomationObject* objExcel,
                                                  ELM327_Info& device, const InterfaceCAN& IfCan_u,
                                                  CAN_DB_Interface& IfCan_d) {
  InterfaceBinding binding(parts_.platform.IFCan, IfCan_u, IfCan_d);
  return Open(AdapterKind::kInterface, binding, device, objExcel);
}

template <WorkerKind kKind>
void WorkerForm<kKind>::Open_KvaserCAN(platform::AutomationObject* objExcel, ELM327_Info& device,
                                       const KvaserCAN& kvCan_u, CAN_DB_Kvaser& kvCan_d) {
  KvaserBinding binding(parts_.platform.canlib32, kvCan_u, kvCan_d);
  Open(AdapterKind::kKvaser, binding, device, objExcel);
}

template <WorkerKind kKind>
std::int32_t WorkerForm<kKind>::Open(AdapterKind adapter, Binding& binding, ELM327_Info& device,
                                     platform::AutomationObject* objExcel) {
  tick_.TakeMemory();
  TimerBackView_.OnTick([this, &device] { tick_.TimerBackView_Timer(device); });
  const WorkerParts<Table> worker = {.frames = *tables_.frames,
                                     .highlights = *tables_.highlights,
                                     .log = log_,
                                     .TimerBackView = TimerBackView_,
                                     .Device_Timer_Kind = Device_Timer_Kind_};
  return Receive(adapter, kKind, binding, parts_, worker, device, objExcel);
}

template class WorkerForm<WorkerKind::FormBG>;
template class WorkerForm<WorkerKind::FormBG2>;
template class WorkerForm<WorkerKind::FormBG_29>;
template class WorkerForm<WorkerKind::FormBG2_29>;

Workers::Workers(const RunParts& parts)
    : FormBG(parts, parts.platform.timers.FormBG, FormBG_tables),
      FormBG2(parts, parts.platform.timers.FormBG2, FormBG2_tables),
      FormBG_29(parts, parts.platform.timers.FormBG_29, FormBG_29_tables),
      FormBG2_29(parts, parts.platform.timers.FormBG2_29, FormBG2_29_tables) {}

Worker& Workers::Of(WorkerKind kind) {
  switch (kind) {
    case WorkerKind::FormBG:
      return FormBG;
    case WorkerKind::FormBG2:
      return FormBG2;
    case WorkerKind::FormBG_29:
      return FormBG_29;
    case WorkerKind::FormBG2_29:
      break;
  }
  return FormBG2_29;
}

}  // namespace tolvane
