#pragma once

#include "platform/ifcan_library.h"
#include "receive/adapters/binding.h"
#include "receive/adapters/can_db_interface.h"
#include "receive/adapters/interfacecan.h"

namespace tolvane {

/// A board of the company Interface through IFCan.dll.
///
/// The port opened is "IFCAN" and the place in the found list, not the port's own number: where the
/// ports are not numbered from 1 without gaps it is another port than the one listed.
class InterfaceBinding final : public Binding {
 public:
  InterfaceBinding(platform::IfcanLibrary& IFCan, const InterfaceCAN& IfCan_u,
                   CAN_DB_Interface& IfCan_d)
      : IFCan_(IFCan), IfCan_u_(IfCan_u), IfCan_d_(IfCan_d) {}

  [[nodiscard]] bool TakeRate(std::int32_t t_bitRate) override;
  /// A port whose configuration cannot be read is closed again; the handle is then -1.
  [[nodiscard]] bool Open() override;
  void Configure(const ELM327_Info& device) override;
  void GoOnBus() override;
  [[nodiscard]] const ReceivedFrame* Read() override;
  /// Also called after a failed open, with handle -1.
  std::int32_t Close() override;

  [[nodiscard]] static KeyFlags KeyFlagsOf(bool extended);

 private:
  [[nodiscard]] std::int32_t Handle() const;

  platform::IfcanLibrary& IFCan_;
  const InterfaceCAN& IfCan_u_;
  CAN_DB_Interface& IfCan_d_;
  std::int32_t rate_ = 0;
  platform::IfcanConfig config_ = {};
  platform::IfcanMessage record_ = {};
  ReceivedFrame frame_ = {.can_DATA = record_.data};
};

}  // namespace tolvane
