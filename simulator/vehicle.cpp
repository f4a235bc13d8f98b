#include "simulator/vehicle.h"

#include <algorithm>
#include <array>

#include "simulator/frame_bits.h"

namespace tolvane::simulator {
namespace {

using Habit = Vehicle::Habit;

constexpr std::int64_t kBitRate = 500'000;
constexpr std::int64_t kSlowStepMs = 2'000;
constexpr std::int64_t kFlipMs = 4'000;

constexpr std::array kMessages = std::to_array<Vehicle::Message>({
    {0x025, 10, "HLHLZZCX"},
    {0x0AA, 10, "HLHLHLHL"},
    {0x0B0, 10, "HLHLCX"},
    {0x0B2, 10, "HLHLCX"},
    {0x0C6, 10, "HLKZBCX"},
    {0x0F1, 10, "BHLCX"},
    {0x101, 10, "HLBZKKCX"},
    {0x1A0, 10, "BHLKZFCX"},
    {0x110, 20, "HLTZKCX"},
    {0x120, 20, "HLHLBKCX"},
    {0x131, 20, "BCX"},
    {0x142, 20, "HLHLHCX"},
    {0x153, 20, "ZZHLKKCX"},
    {0x164, 20, "HLCX"},
    {0x175, 20, "BBHLFFCX"},
    {0x1C4, 20, "HLTTZKCX"},
    {0x1D0, 20, "BKHLCX"},
    {0x1E5, 20, "HLHLZZZX"},
    {0x200, 25, "HLBKZZCX"},
    {0x212, 25, "KHLCX"},
    {0x224, 30, "HLKKBZZX"},
    {0x22C, 40, "BHLTCX"},
    {0x23A, 40, "HLZZHLCX"},
    {0x248, 40, "TTBCX"},
    {0x25A, 50, "HLHLTTCX"},
    {0x262, 50, "BBZZKKCX"},
    {0x273, 50, "HLCX"},
    {0x284, 50, "TBKZCX"},
    {0x295, 50, "HLHLHLCX"},
    {0x2C1, 50, "HLHLZKBX"},
    {0x2D2, 60, "BTHLX"},
    {0x2E4, 80, "HLTKCX"},
    {0x300, 100, "HLTTBBCX"},
    {0x308, 100, "TTTTZZZX"},
    {0x320, 100, "HLBKCX", Habit::kStops},
    {0x331, 100, "BCX"},
    {0x340, 100, "HLTBKCX", Habit::kWavers},
    {0x355, 100, "KKKKFFFF"},
    {0x361, 100, "BBBBZZZZ"},
    {0x380, 100, "HLZZTTCX"},
    {0x399, 100, "BTX"},
    {0x3B0, 100, "HLHLZFCX"},
    {0x3C8, 150, "BKTZZCX"},
    {0x3D9, 150, "HLTX"},
    {0x3E2, 200, "TTHLBZCX"},
    {0x3F6, 200, "BKX"},
    {0x410, 200, "HLZZZZTX"},
    {0x427, 200, "BBKKTCX"},
    {0x43E, 250, "TZZKKFFX"},
    {0x450, 300, "HLTBX"},
    {0x470, 500, "TTTTBBBX"},
    {0x48A, 500, "BB"},
    {0x4A1, 500, "HLHLKKZX"},
    {0x4C3, 500, "Z"},
    {0x4F0, 500, "TKKZCX"},
    {0x510, 1000, "KKKKKKKK"},
    {0x550, 1000, "TTBZZZCX"},
    {0x580, 1000, "FF"},
    {0x5B4, 1000, "HLHLHLHL"},
    {0x622, 1000, "KZC"},
});

std::uint32_t ExtendedId(std::uint32_t id) { return 0x18000021 | id << 12; }

}  // namespace

std::vector<Vehicle::Message> Vehicle::Messages() { return {kMessages.begin(), kMessages.end()}; }

Vehicle::Vehicle(std::uint64_t seed, IdFormat format) : random_(seed) {
  senders_.reserve(2 * kMessages.size());
  for (std::size_t i = 0; i < kMessages.size(); ++i) {
    const Message& message = kMessages[i];
    if (format == IdFormat::kExtended) {
      AddSender(message, ExtendedId(message.id), true);
      continue;
    }
    AddSender(message, message.id, false);
    if (format == IdFormat::kBoth && i % 3 == 2) AddSender(message, message.id, true);
  }
}

void Vehicle::AddSender(const Message& message, std::uint32_t bus_id, bool extended) {
  Sender sender{.message = message, .bus_id = bus_id, .extended = extended};
  sender.nominal_us = random_.Between(0, std::int64_t{message.period_ms} * 1000 - 1);
  sender.due_us = sender.nominal_us;
  sender.drift = static_cast<std::uint16_t>(random_.Next());
  sender.slow = static_cast<std::uint8_t>(random_.Next());
  sender.bits = static_cast<std::uint8_t>(random_.Next());
  senders_.push_back(sender);
}

bool Vehicle::Next(BusFrame& frame) {
  const auto first = std::ranges::min_element(senders_, {}, &Sender::due_us);
  const std::int64_t began_us = std::max(first->due_us, bus_free_us_);
  Sender& sender = Winner(began_us);
  frame = BusFrame{};
  frame.id = sender.bus_id;
  frame.extended = sender.extended;
  FillData(sender, frame);
  frame.time_us =
      began_us + std::int64_t{FrameBits(frame.extended, frame.dlc)} * 1'000'000 / kBitRate;
  bus_free_us_ = frame.time_us;
  PlanNext(sender);
  return true;
}

/// When the bus is free, the waiting message with the lowest identifier wins. Of a standard and an
/// extended frame with the same number the standard one wins; it comes first in the list.
Vehicle::Sender& Vehicle::Winner(std::int64_t bus_us) {
  const auto earlier = [bus_us](const Sender& sender) { return sender.due_us <= bus_us; };
  const auto winner = std::ranges::min_element(senders_, [&](const Sender& a, const Sender& b) {
    return earlier(a) != earlier(b) ? earlier(a) : a.message.id < b.message.id;
  });
  return *winner;
}

void Vehicle::FillData(Sender& sender, BusFrame& frame) {
  const auto once_in = [&](std::int64_t every_ms) {
    const std::int64_t frames = std::max<std::int64_t>(every_ms / sender.message.period_ms, 1);
    return random_.Below(static_cast<std::uint32_t>(frames)) == 0;
  };
  sender.drift = static_cast<std::uint16_t>(sender.drift + random_.Between(-4, 5));
  if (once_in(kSlowStepMs)) {
    sender.slow = static_cast<std::uint8_t>(sender.slow + (random_.Below(2) == 0 ? 1 : -1));
  }
  if (once_in(kFlipMs))
    sender.bits = static_cast<std::uint8_t>(sender.bits ^ 1u << random_.Below(8));
  sender.counter = (sender.counter + 1) & 15;

  frame.dlc = static_cast<std::uint8_t>(sender.message.bytes.size());
  auto sum = static_cast<std::uint8_t>(sender.message.id + frame.dlc);
  for (std::size_t i = 0; i < frame.dlc; ++i) {
    std::uint8_t& byte = frame.data[i];
    switch (sender.message.bytes[i]) {
      case 'C':
        byte = sender.counter;
        break;
      case 'X':
        byte = sum;
        break;
      case 'H':
        byte = static_cast<std::uint8_t>(sender.drift >> 8);
        break;
      case 'L':
        byte = static_cast<std::uint8_t>(sender.drift);
        break;
      case 'T':
        byte = sender.slow;
        break;
      case 'B':
        byte = sender.bits;
        break;
      case 'K':
        byte = static_cast<std::uint8_t>(sender.message.id * 7 + i * 29);
        break;
      case 'F':
        byte = 0xFF;
        break;
      default:
        byte = 0;
        break;
    }
    sum = static_cast<std::uint8_t>(sum + byte);
  }
}

void Vehicle::PlanNext(Sender& sender) {
  const std::int64_t period_us = std::int64_t{sender.message.period_ms} * 1000;
  if (sender.message.habit == Habit::kWavers) {
    sender.due_us += period_us * random_.Between(55, 160) / 100;
    return;
  }
  sender.nominal_us += period_us;
  const std::int64_t place_us = sender.nominal_us % (kSendingUs + kSilentUs);
  if (sender.message.habit == Habit::kStops && place_us >= kSendingUs) {
    sender.nominal_us += kSendingUs + kSilentUs - place_us;
  }
  sender.due_us = sender.nominal_us + random_.Between(-period_us / 100, period_us / 100);
}

}  // namespace tolvane::simulator
