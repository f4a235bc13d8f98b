#pragma once

#include "platform/message_box.h"
#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane {

// The reason when an adapter does not answer: at the start of the program, or of a run.
constexpr StringView kDeviceFails = u"機器が正常に動作していません。";

// The last line of a stop message: what ends with it.
constexpr StringView kEndsApp = u"アプリケーションを終了します。";
constexpr StringView kEndsRun = u"接続を終了します。";

/// Shows why the program or a run cannot go on: `reason`, of one line or more, and `end` below it.
/// Pumps messages.
inline void ShowStopMessage(platform::MessageBox& message_box, const ELM327_Info& device,
                            StringView reason, StringView end) {
  String text(reason);
  text.append(u"\r\n").append(end);
  message_box.Critical(text, device.Application_title);
}

}  // namespace tolvane
