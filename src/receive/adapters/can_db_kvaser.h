#pragma once

#include <cstdint>

#include "platform/string.h"
#include "run/column.h"

namespace tolvane {

/// What is known of the Kvaser channels: those found at start-up, and the selected one. The
/// columns are filled from 0, unlike those of the other two adapter kinds.
class CAN_DB_Kvaser : public ArayyClear {
 public:
  static constexpr std::int32_t kArayy_MAX = 30;

  /// Writes every start value. Called once, at start-up.
  void Param_ALL_Clear() { *this = CAN_DB_Kvaser(); }

  std::int32_t Kvaser_FindCount = 0;                      // channels found
  std::int32_t Kvaser_FindCount_MAX = kArayy_MAX;         // the most that are taken
  std::int32_t KvCAN_SelectNo = 0;                        // 1-based, of the selected one
  String KvCAN_Handle = u"0";                             // decimal text, converted at every use
  Column<std::int32_t, kArayy_MAX + 1> Kvaser_DevHandle;  // during the search
  Column<std::int32_t, kArayy_MAX + 1> Kvaser_DevChannel;
  Column<String, kArayy_MAX + 1> Kvaser_DevdName;  // as shown in the device list
};

}  // namespace tolvane
