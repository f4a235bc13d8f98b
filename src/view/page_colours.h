#pragma once

#include "platform/support_library.h"
#include "run/elm327_info.h"
#include "view/back_page.h"
#include "view/tick_parts.h"

namespace tolvane {

/// The colour pass of one tick: paints the active regions that the text pass recorded, and the
/// markers, on a page whose text is set. Changes neither table and does not yield.
template <typename Table>
class PageColours {
 public:
  using ViewTable = typename ViewTableOf<Table>::Type;

  PageColours(const ELM327_Info& device, platform::SupportLibrary& qxt100, const Table& frames,
              const ViewTable& highlights, BackPage& RTB_MainView_Back)
      : device_(device),
        qxt100_(qxt100),
        frames_(frames),
        highlights_(highlights),
        RTB_MainView_Back_(RTB_MainView_Back) {}

  void Paint();

 private:
  void PaintBytes(std::int16_t row);
  void PaintCycle(std::int16_t row);
  void PaintMarkers(std::int32_t id);
  void Select(std::int32_t start, std::int32_t length);

  const ELM327_Info& device_;
  platform::SupportLibrary& qxt100_;
  const Table& frames_;
  const ViewTable& highlights_;
  BackPage& RTB_MainView_Back_;
};

extern template class PageColours<CAN_ReadDB>;
extern template class PageColours<CAN_ReadDB29>;

}  // namespace tolvane
