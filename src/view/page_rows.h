#pragma once

#include <cstdint>

#include "platform/string.h"
#include "receive/tables/can_readdb.h"
#include "receive/tables/can_readdb29.h"
#include "run/number_text.h"
#include "view/tables/stringbuilder.h"

namespace tolvane {

/// One line of the page: its identifier and its row in the frame and highlight tables.
struct PageRow {
  std::int32_t id;
  std::int16_t row;
};

/// The number of data bytes that the page shows of a frame: seven when the DLC is above 8.
[[nodiscard]] constexpr int ShownBytes(std::uint8_t dlc) { return dlc <= 8 ? dlc : 7; }

/// How the page goes through a frame table, and what differs in its lines. Positions go from kFirst
/// up to, but not including, End, which may grow while a scan yields.
template <typename Table>
struct PageRows;

template <>
struct PageRows<CAN_ReadDB> {
  static constexpr StringView kHeader = u"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
  static constexpr std::int32_t kFirst = 1;  // ID 0 is stored, but never shown

  static std::int32_t End(const CAN_ReadDB&) { return CAN_ReadDB::kArayy_MAX; }
  static PageRow At(const CAN_ReadDB&, std::int32_t position) {
    return {position, static_cast<std::int16_t>(position)};
  }
  static void AppendID(const CAN_ReadDB&, std::int32_t position, StringBuilder& text) {
    text.Append(HexID11Text(position));
  }
};

template <>
struct PageRows<CAN_ReadDB29> {
  static constexpr StringView kHeader = u"E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
  static constexpr std::int32_t kFirst = 0;

  static std::int32_t End(const CAN_ReadDB29& table) { return table.CAN29_Received_ID_Counter; }
  static PageRow At(const CAN_ReadDB29& table, std::int32_t position) {
    const auto i = static_cast<std::int16_t>(position);
    return {table.CAN29_Received_ID(i), static_cast<std::int16_t>(table.CAN29_ArrayNo(i))};
  }
  /// The E column and the identifier.
  static void AppendID(const CAN_ReadDB29& table, std::int32_t position, StringBuilder& text) {
    const auto i = static_cast<std::int16_t>(position);
    text.Append(table.CAN29_ExtendFlag(i) == 1 ? StringView(u"* ") : StringView(u"  "));
    text.Append(HexID29Text(table.CAN29_Received_ID(i)));
  }
};

}  // namespace tolvane
