#pragma once

#include <gtest/gtest.h>

#include <type_traits>

#include "tests/view/tick_bed.h"

namespace tolvane {

/// The base of tests that hold for the tick of each of the four workers.
template <typename Worker>
class EachWorker : public testing::Test {
 protected:
  using Bed = TickBed<Worker::value>;
  using Table = typename Bed::Table;
  using Frame = FrameColumns<Table>;
  static constexpr bool kIs29 = Bed::kIs29;

  Bed bed_;
};

template <WorkerKind kKind>
using WorkerIs = std::integral_constant<WorkerKind, kKind>;
using AllWorkers =
    testing::Types<WorkerIs<WorkerKind::FormBG>, WorkerIs<WorkerKind::FormBG2>,
                   WorkerIs<WorkerKind::FormBG_29>, WorkerIs<WorkerKind::FormBG2_29>>;

}  // namespace tolvane
