#include "view/tick.h"

#include "view/page_colours.h"
#include "view/page_composer.h"
#include "view/tick_traits.h"

namespace tolvane {

template <typename Table>
Tick<Table>::Tick(WorkerKind worker, const TickParts& parts, Table& frames, ViewTable& highlights)
    : worker_(worker), parts_(parts), frames_(frames), highlights_(highlights) {}

template <typename Table>
void Tick<Table>::TimerBackView_Timer(const ELM327_Info& device) {
  const double tick_time = parts_.qxt100.qx_timeGetTime();
  parts_.TimerBackView.Enabled(false);

  const TickTraits& traits = TickTraitsOf(worker_);
  text_.AllClear();
  PageComposer<Table>(traits, parts_, device, tick_time, frames_, highlights_, text_).Compose();
  RTB_MainView_Back_.Text(text_.Text());
  PageColours<Table>(device, parts_.qxt100, frames_, highlights_, RTB_MainView_Back_).Paint();

  RTB_MainView_Back_.SwapInto(parts_.RTB_MainView);
  if (traits.refresh) parts_.RTB_MainView.Refresh();
  if (parts_.RxFlag == 1) parts_.TimerBackView.Enabled(true);
}

template class Tick<CAN_ReadDB>;
template class Tick<CAN_ReadDB29>;

}  // namespace tolvane
