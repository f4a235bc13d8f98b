#pragma once

namespace tolvane::simulator {

/// Bit times for which a data frame of `length` bytes (0 to 8) occupies the bus, including the
/// three bits of interframe space.
///
/// Fixed part: 44 bits with an 11-bit identifier, 64 with 29 bits, and 8 per data byte. The bits
/// from the start of frame to the end of the checksum (34 or 54, and the data) are stuffed: one
/// bit after every five equal ones. Counting them exactly would need the checksum of each frame;
/// random bits have one stuff bit in 31, which is assumed here. A frame of zeros has up to eight
/// times as many.
constexpr int FrameBits(bool extended, int length) {
  const int stuffed_part = (extended ? 54 : 34) + 8 * length;
  const int fixed_tail = 10;
  const int interframe_space = 3;
  return stuffed_part + stuffed_part / 31 + fixed_tail + interframe_space;
}

}  // namespace tolvane::simulator
