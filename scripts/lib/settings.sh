# Settings of the running program, chosen in its dialogs by tolvane_drive.
# shellcheck shell=bash

# program_bits IDS: with 29 bits the program receives standard frames too.
program_bits() { if [ "$1" = 11 ]; then echo 11; else echo 29; fi; }

# drive_ids IDS: identifiers of 11 or 29 bits, or both, for the runs that follow.
drive_ids() {
  drive wait-window -- wait-enabled Bt_Connect -- command menu_common_setting -- \
    window TolvaneSettingsDialog -- click "RB_MsgType_$(($(program_bits "$1") == 29))" -- click Bt_OK ||
    fail "the settings cannot be changed"
}

# drive_xlsx: logs as .xlsx workbooks, for the runs that follow; they are .xls at first.
drive_xlsx() {
  drive wait-window -- wait-enabled Bt_Connect -- command menu_opt_log1 -- \
    window TolvaneSettingsDialog -- click RB_LogSV_Format_0 -- click RB_Excel_Format_1 -- \
    click Bt_OK || fail "the log's format cannot be chosen"
}
