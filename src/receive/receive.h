#pragma once

#include <cstdint>

#include "logging/excel_outputdb.h"
#include "platform/automation.h"
#include "platform/timer.h"
#include "receive/adapters/binding.h"
#include "receive/run_parts.h"
#include "receive/tables/can_readdb.h"
#include "receive/tables/can_readdb29.h"
#include "run/adapter_kind.h"
#include "run/worker_kind.h"
#include "view/tick.h"

namespace tolvane {

/// What a worker keeps for the life of its form and a run works on.
template <typename Table>
struct WorkerParts {
  Table& frames;
  typename ViewTableOf<Table>::Type& highlights;
  Excel_OutputDB& log;
  platform::Timer& TimerBackView;
  std::int32_t& Device_Timer_Kind;
};

/// One run, all of it, on an adapter that is closed before and after: see Worker. Returns the
/// status of the adapter's close, 0 when the adapter was not touched.
template <typename Table>
std::int32_t Receive(AdapterKind adapter, WorkerKind kind, Binding& binding, const RunParts& parts,
                     const WorkerParts<Table>& worker, ELM327_Info& device,
                     platform::AutomationObject* objExcel);

extern template std::int32_t Receive(AdapterKind, WorkerKind, Binding&, const RunParts&,
                                     const WorkerParts<CAN_ReadDB>&, ELM327_Info&,
                                     platform::AutomationObject*);
extern template std::int32_t Receive(AdapterKind, WorkerKind, Binding&, const RunParts&,
                                     const WorkerParts<CAN_ReadDB29>&, ELM327_Info&,
                                     platform::AutomationObject*);

}  // namespace tolvane
