#pragma once

#include "receive/tables/can_readdb.h"
#include "receive/tables/can_readdb29.h"
#include "run/worker_kind.h"

namespace tolvane {

/// The kind of frame table that a worker keeps.
template <WorkerKind kKind>
struct FrameTableOf {
  using Type = CAN_ReadDB;
};
template <>
struct FrameTableOf<WorkerKind::FormBG_29> {
  using Type = CAN_ReadDB29;
};
template <>
struct FrameTableOf<WorkerKind::FormBG2_29> {
  using Type = CAN_ReadDB29;
};

}  // namespace tolvane
