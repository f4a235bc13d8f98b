#pragma once

#include <memory>
#include <utility>

#include "simulator/bus_frame.h"

namespace tolvane::simulator {

/// The traffic of a bus as an adapter with a wrong bit rate sees it: each frame is an error.
class GarbledSource : public BusSource {
 public:
  explicit GarbledSource(std::unique_ptr<BusSource> inner) : inner_(std::move(inner)) {}

  void Reach(std::int64_t bus_us) override { inner_->Reach(bus_us); }

  bool Next(BusFrame& frame) override {
    if (!inner_->Next(frame)) return false;
    frame = BusFrame{.time_us = frame.time_us, .kind = FrameKind::kError};
    return true;
  }

 private:
  std::unique_ptr<BusSource> inner_;
};

}  // namespace tolvane::simulator
