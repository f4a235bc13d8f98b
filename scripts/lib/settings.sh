# Settings of the running program, chosen in its dialogs by tolvane_drive.
# shellcheck shell=bash

# program_bits IDS: with 29 bits the program receives standard frames too.
program_bits() { if [ "$1" = 11 ]; then echo 11; else echo 29; fi; }

# Bit rates in kbit/s, in the order of their controls, RB_BitRate_0 and up.
rates_of_settings=(1000 800 500 250 100 50 20 10 125)

# drive_bus IDS RATE: identifiers of 11 or 29 bits, or both, and kbit/s of the bus, for the runs that follow; what is
# empty stays as it is.
drive_bus() {
  local clicks=() number
  [ -z "$1" ] || clicks+=(click "RB_MsgType_$(($(program_bits "$1") == 29))" --)
  for number in "${!rates_of_settings[@]}"; do
    [ "${rates_of_settings[number]}" != "$2" ] || clicks+=(click "RB_BitRate_$number" --)
  done
  [ ${#clicks[@]} -gt 0 ] || return 0
  drive wait-window -- wait-enabled Bt_Connect -- command menu_common_setting -- \
    window TolvaneSettingsDialog -- "${clicks[@]}" click Bt_OK || fail "the settings cannot be changed"
}

# drive_ids IDS
drive_ids() { drive_bus "$1" ""; }

# drive_xlsx: logs as .xlsx workbooks, for the runs that follow; they are .xls at first.
drive_xlsx() {
  drive wait-window -- wait-enabled Bt_Connect -- command menu_opt_log1 -- \
    window TolvaneSettingsDialog -- click RB_LogSV_Format_0 -- click RB_Excel_Format_1 -- \
    click Bt_OK || fail "the log's format cannot be chosen"
}
