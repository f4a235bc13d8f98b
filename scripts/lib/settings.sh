# Settings of the running program, chosen in its dialogs by tolvane_drive.
# shellcheck shell=bash

# drive_ids BITS: identifiers of 11 or 29 bits, for the runs that follow.
drive_ids() {
  drive wait-window -- wait-enabled Bt_Connect -- command menu_common_setting -- \
    window TolvaneSettingsDialog -- click "RB_MsgType_$(($1 == 29))" -- click Bt_OK ||
    fail "the settings cannot be changed"
}

# drive_xlsx: logs as .xlsx workbooks, for the runs that follow; they are .xls at first.
drive_xlsx() {
  drive wait-window -- wait-enabled Bt_Connect -- command menu_opt_log1 -- \
    window TolvaneSettingsDialog -- click RB_LogSV_Format_0 -- click RB_Excel_Format_1 -- \
    click Bt_OK || fail "the log's format cannot be chosen"
}
