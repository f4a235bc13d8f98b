#include "receive/receive.h"

#include "receive/adapters/bit_rate.h"
#include "receive/open_traits.h"
#include "receive/store_frame.h"
#include "run/stop_message.h"
#include "view/optfunction1.h"

namespace tolvane {
namespace {

constexpr StringView kFolderFailed = u"ログを保存するサブフォルダを作成できません。";
constexpr StringView kRateRefused = u"非対応の通信速度が選択されています。";
constexpr StringView kRateRefusedEnd = u"接続をを終了します。";
constexpr StringView kReceiving = u"通信中";
constexpr StringView kReceivingToSpreadsheet = u"通信中　ログ出力(Excel)";
constexpr StringView kReceivingToCsv = u"通信中　ログ出力(csv)";
constexpr StringView kFinishing = u"終了処理中";
constexpr std::uint32_t kTimerPeriod = 1;  // ms

/// Whether t_MsgFmtTyp lets a frame of this format through.
bool PassesFormat(FormatFilter filter, std::int32_t t_MsgFmtTyp, bool extended) {
  if (filter == FormatFilter::kNone || t_MsgFmtTyp == 0) return true;
  return t_MsgFmtTyp == 1 && extended == (filter == FormatFilter::kExtended);
}

/// Whether the settings let a frame reach table and log. A mode that is neither 0 nor 1, which only
/// a settings file can hold, drops every frame.
bool PassesExclusion(std::int32_t id, const ELM327_Info& device) {
  const std::int32_t mode = device.t_Save_ID_DisableMode;
  return mode == 0 || (mode == 1 && OptFunction1::Check_DisableID(id, device) == 0);
}

template <typename Table>
class Run {
 public:
  Run(AdapterKind adapter, WorkerKind kind, Binding& binding, const RunParts& parts,
      const WorkerParts<Table>& worker, ELM327_Info& device, platform::AutomationObject* objExcel)
      : adapter_(AdapterTraitsOf(adapter)),
        traits_(open_traits(adapter, kind)),
        binding_(binding),
        parts_(parts),
        worker_(worker),
        log_(worker.log),
        device_(device),
        objExcel_(objExcel) {}

  std::int32_t Execute();

 private:
  bool Prepare();
  bool MakeSubfolder();
  void ClearTables();
  void ClearLog();
  bool OpenAdapter(std::int32_t& status);
  void Start();
  void ShowRate();
  void ShowReceiving();
  void ReadWhileWanted();
  void KeepTicking();
  const ReceivedFrame* ReadAccepted();
  void Log(const ReceivedFrame& frame);
  void Store(const ReceivedFrame& frame, double now_time);
  void OfferRecords();
  std::int32_t Finish();
  void FlushAndStopTimer();
  void Stop(StringView reason, StringView end);

  const AdapterTraits& adapter_;
  const OpenTraits& traits_;
  Binding& binding_;
  const RunParts& parts_;
  const WorkerParts<Table>& worker_;
  Excel_OutputDB& log_;
  ELM327_Info& device_;
  platform::AutomationObject* objExcel_;
  TimeLine time_;
  SlotFinder<Table> slots_;
  String FileName_Date_;
  String FileName_No_;
  String FolderName_;
  bool session_ended_ = false;
};

template <typename Table>
std::int32_t Run<Table>::Execute() {
  std::int32_t status = 0;
  if (Prepare() && OpenAdapter(status)) {
    Start();
    ReadWhileWanted();
    status = Finish();
  }
  parts_.RxFlag = 0;
  return status;
}

template <typename Table>
bool Run<Table>::Prepare() {
  if (traits_.start_order == StartOrder::kSubfolderFirst && !MakeSubfolder()) return false;
  worker_.Device_Timer_Kind = adapter_.vender;
  ClearTables();
  if (traits_.start_order == StartOrder::kTablesFirst && !MakeSubfolder()) return false;
  ClearLog();
  if (!binding_.TakeRate(device_.t_bitRate)) {
    Stop(kRateRefused, kRateRefusedEnd);
    return false;
  }
  return true;
}

template <typename Table>
bool Run<Table>::MakeSubfolder() {
  if (device_.t_LogSave_subFolder != 1) return true;
  if (log_.Get_SubFolder_Name(device_, FolderName_)) return true;
  Stop(kFolderFailed, kEndsRun);
  return false;
}

template <typename Table>
void Run<Table>::ClearTables() {
  worker_.frames.Param_ALL_Clear();
  worker_.highlights.Param_ALL_Clear();
  worker_.highlights.DisableID_Status_Buffer = OptFunction1::Make_DisableID_Text(device_);
}

template <typename Table>
void Run<Table>::ClearLog() {
  log_.Param_ALL_Clear();
  const String version = parts_.window.TB_ODB_Hard_Version.Text();
  log_.hardware_information = traits_.hardware_text == HardwareText::kVersion
                                  ? version
                                  : parts_.window.Cmb_Serect_Device.Text() + u" 、" + version;
  if (device_.t_LogSave_Enable == 1 && device_.t_LogSaveFormat == kLogFormatCsv) {
    log_.csv_TakeMemory();
  }
}

template <typename Table>
bool Run<Table>::OpenAdapter(std::int32_t& status) {
  if (binding_.Open()) return true;
  Stop(kDeviceFails, traits_.failed_open_text);
  if (traits_.close_after_failed_open) status = binding_.Close();
  return false;
}

template <typename Table>
void Run<Table>::Start() {
  ShowRate();
  ShowReceiving();
  OfferRecords();
  if (traits_.configuring == Configuring::kBeforeTimer) binding_.Configure(device_);
  worker_.TimerBackView.Enabled(true);
  if (traits_.configuring == Configuring::kAfterTimer) binding_.Configure(device_);
  binding_.GoOnBus();
  parts_.platform.winmm.timeBeginPeriod(kTimerPeriod);
}

template <typename Table>
void Run<Table>::ShowRate() {
  if (const BitRate* rate = BitRateOf(device_.t_bitRate)) {
    parts_.window.TB_Protocol.Text(rate->text);
    log_.str_bitrate = rate->text;
  }
}

template <typename Table>
void Run<Table>::ShowReceiving() {
  StringView status = kReceiving;
  if (device_.t_LogSave_Enable == 1) {
    if (device_.t_LogSaveFormat == kLogFormatSpreadsheet) {
      status = kReceivingToSpreadsheet;
    } else if (device_.t_LogSaveFormat == kLogFormatCsv) {
      log_.csv_DB_Initialize(0, device_);
      status = kReceivingToCsv;
    }
  }
  parts_.window.TB_Status.Text(status);
}

template <typename Table>
void Run<Table>::OfferRecords() {
  if (device_.t_LogSave_Enable != 1) return;
  parts_.Session_End_Output = [this] {
    session_ended_ = true;
    log_.Session_End_Output(device_, FileName_Date_, FileName_No_, FolderName_);
  };
}

template <typename Table>
void Run<Table>::ReadWhileWanted() {
  while (parts_.RxFlag == 1) {
    const ReceivedFrame* frame = ReadAccepted();
    if (frame == nullptr) {
      // Not YieldWhenDue: on a busy system the scheduler takes the processor longest from a thread
      // that never waits, so each yield asks the system.
      parts_.platform.events.YieldToEvents();
      KeepTicking();
      continue;
    }
    if (traits_.exclusion && !PassesExclusion(frame->id, device_)) continue;
    StoreFrame(worker_.frames, slots_, *frame, time_, adapter_.timer_wrap, device_,
               parts_.platform.qxt100);
    if (device_.t_LogSave_Enable == 1) Log(*frame);
  }
}

/// A system that had no timer to give at the end of a tick would leave the page as it is for the
/// rest of the run.
template <typename Table>
void Run<Table>::KeepTicking() {
  platform::Timer& timer = worker_.TimerBackView;
  if (parts_.RxFlag == 1 && !timer.Enabled()) timer.Enabled(true);
}

/// Null for an empty read and for a frame that this run does not take. The format filter is for
/// boards alone, see KeyFlags::can_Flag.
template <typename Table>
const ReceivedFrame* Run<Table>::ReadAccepted() {
  const ReceivedFrame* frame = binding_.Read();
  if (frame == nullptr || frame->id < traits_.lowest_id || frame->id > traits_.highest_id ||
      (traits_.plain_standard && !frame->plain_standard) ||
      !PassesFormat(traits_.format_filter, device_.t_MsgFmtTyp, frame->key.can_Flag == 1)) {
    return nullptr;
  }
  return frame;
}

template <typename Table>
void Run<Table>::Log(const ReceivedFrame& frame) {
  Store(frame, time_.Message_Time);
  log_.RollOver(device_, objExcel_, FileName_Date_, FileName_No_, FolderName_);
}

template <>
void Run<CAN_ReadDB>::Store(const ReceivedFrame& frame, double now_time) {
  if (device_.t_LogSaveFormat == kLogFormatSpreadsheet) {
    log_.Excel_DataInput(now_time, frame.id, frame.can_DLC, frame.can_DATA, 0);
  } else {
    log_.csv_DataInput(now_time, frame.id, frame.can_DLC, frame.can_DATA);
  }
}

template <>
void Run<CAN_ReadDB29>::Store(const ReceivedFrame& frame, double now_time) {
  const std::int32_t can_Flag = frame.key.can_Flag;
  if (device_.t_LogSaveFormat == kLogFormatSpreadsheet) {
    log_.Excel_DataInput29(now_time, frame.id, frame.can_DLC, frame.can_DATA, can_Flag);
  } else {
    log_.csv_DataInput29(now_time, frame.id, frame.can_DLC, frame.can_DATA, can_Flag);
  }
}

template <typename Table>
std::int32_t Run<Table>::Finish() {
  parts_.platform.winmm.timeEndPeriod(kTimerPeriod);
  std::int32_t status = 0;
  if (traits_.end_order == EndOrder::kCloseStatusFlush) status = binding_.Close();
  parts_.window.TB_Status.Text(kFinishing);
  if (traits_.end_order == EndOrder::kStatusCloseFlush) status = binding_.Close();
  FlushAndStopTimer();
  if (traits_.end_order == EndOrder::kStatusFlushClose) status = binding_.Close();
  return status;
}

/// The timer is still on during the flush, which may yield: a tick can come in between.
template <typename Table>
void Run<Table>::FlushAndStopTimer() {
  if (device_.t_LogSave_Enable == 1 && !session_ended_) {
    log_.Excel_DataOutput(log_.Excel_DB_ArayyCh, device_, objExcel_, FileName_Date_, FileName_No_,
                          FolderName_);
  }
  parts_.Session_End_Output = nullptr;
  if (worker_.TimerBackView.Enabled()) worker_.TimerBackView.Enabled(false);
}

template <typename Table>
void Run<Table>::Stop(StringView reason, StringView end) {
  ShowStopMessage(parts_.platform.message_box, device_, reason, end);
}

}  // namespace

template <typename Table>
std::int32_t Receive(AdapterKind adapter, WorkerKind kind, Binding& binding, const RunParts& parts,
                     const WorkerParts<Table>& worker, ELM327_Info& device,
                     platform::AutomationObject* objExcel) {
  return Run<Table>(adapter, kind, binding, parts, worker, device, objExcel).Execute();
}

template std::int32_t Receive(AdapterKind, WorkerKind, Binding&, const RunParts&,
                              const WorkerParts<CAN_ReadDB>&, ELM327_Info&,
                              platform::AutomationObject*);
template std::int32_t Receive(AdapterKind, WorkerKind, Binding&, const RunParts&,
                              const WorkerParts<CAN_ReadDB29>&, ELM327_Info&,
                              platform::AutomationObject*);

}  // namespace tolvane
