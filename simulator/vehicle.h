#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "simulator/bus_frame.h"
#include "simulator/random.h"

namespace tolvane::simulator {

/// The built-in vehicle: about sixty messages at 10 to 1,000 ms on a 500 kbit/s bus, with counters,
/// checksums, drifting values and states, one message that sometimes stops for seconds and one
/// whose cycle varies. The same seed gives the same frames at the same times.
class Vehicle : public BusSource {
 public:
  /// What a message does about its cycle.
  enum class Habit : std::uint8_t {
    kSteady,  // within one percent
    kStops,   // sends for kSendingUs, is silent for kSilentUs, and again
    kWavers,  // each cycle between 55 and 160 percent
  };

  /// Each letter of `bytes` is one data byte:
  ///   C counter 0 to 15         X checksum over the bytes before it
  ///   H L high and low byte of a value that drifts with every frame
  ///   T a value that moves by one about every two seconds
  ///   B state bits that flip now and then
  ///   K a constant of the message, Z zero, F all bits set
  struct Message {
    std::uint32_t id;
    std::int32_t period_ms;
    std::string_view bytes;
    Habit habit = Habit::kSteady;
  };

  static constexpr std::int64_t kSendingUs = 5'000'000;
  static constexpr std::int64_t kSilentUs = 3'000'000;

  /// In the extended format identifier 123 becomes 18123021. With both, all messages are standard,
  /// and every third one also has extended frames with the same number and different values.
  Vehicle(std::uint64_t seed, IdFormat format);

  bool Next(BusFrame& frame) override;

  static std::vector<Message> Messages();

 private:
  struct Sender {
    Message message;
    std::uint32_t bus_id = 0;
    bool extended = false;
    std::int64_t nominal_us = 0;  // where the cycle stands without jitter
    std::int64_t due_us = 0;
    std::uint8_t counter = 0;
    std::uint16_t drift = 0;
    std::uint8_t slow = 0;
    std::uint8_t bits = 0;
  };

  void AddSender(const Message& message, std::uint32_t bus_id, bool extended);
  Sender& Winner(std::int64_t bus_us);
  void FillData(Sender& sender, BusFrame& frame);
  void PlanNext(Sender& sender);

  Random random_;
  std::vector<Sender> senders_;
  std::int64_t bus_free_us_ = 0;
};

}  // namespace tolvane::simulator
