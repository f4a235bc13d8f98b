# The options of a script, each declared once: its allowed values, its default and its text in the usage.
# opt[NAME] is the value, the last one when an option is given more than once. given[NAME] is set when the caller
# gave the option, and has all its values, each followed by a blank.
# shellcheck shell=bash
: "${command_name:?common.sh comes first}"

# shellcheck disable=SC2034 # opt and given are for the scripts
declare -A opt=() given=() option_kinds=()
option_usage="" example_usage="" argument_name="" command_text=""

# option NAME PLACEHOLDER KIND DEFAULT TEXT: --NAME VALUE. KIND is one of those of check_value.
option() {
  option_kinds[$1]=$3 opt[$1]=$4
  usage_line "--$1 $2" "$5${4:+ ($4)}"
}

# flag NAME TEXT: --NAME without a value, which makes opt[NAME] 1.
flag() {
  option_kinds[$1]=flag opt[$1]=""
  usage_line "--$1" "$2"
}

# argument NAME TEXT: one word that belongs to no option is allowed, opt[NAME].
argument() {
  argument_name=$1 opt[$1]=""
  usage_line "${1^^}" "$2"
}

# example COMMAND TEXT: one use of the script, at the end of its usage.
example() { example_usage+="  $1"$'\n'"      $2"$'\n'; }

# takes_command TEXT: the first word that belongs to no option begins a command, which is required; TEXT is its
# name in the usage. command_words has the command with its own words and options.
takes_command() { command_text=$1; }

usage_line() {
  local first=$1 line
  while IFS= read -r line; do
    printf -v line '  %-16s %s' "$first" "${line% }"
    option_usage+=$line$'\n' first=""
  done < <(fold -s -w 80 <<<"$2")
}

# read_options USAGE WORDS: USAGE is what the script does.
read_options() {
  local usage=$1 word
  catch_the_end
  shift
  for word in "$@"; do
    # A command's --help is its own.
    [[ -z $command_text || $word == -* ]] || break
    [[ $word != --help && $word != -h ]] || { print_usage "$usage"; exit 0; }
  done
  while [ $# -gt 0 ]; do
    case $1 in
      --?*=*)
        word=${1%%=*} word=${word#--}
        [[ $word != help && ${option_kinds[$word]:-} != flag ]] ||
          fail "--$word takes no value ($command_name --help)"
        set -- "--$word" "${1#*=}" "${@:2}"
        ;;
      -*)
        word=${1#--}
        [[ -n $word && -n ${option_kinds[$word]:-} ]] ||
          fail "no such option: $1 ($command_name --help names them)"
        if [ "${option_kinds[$word]}" = flag ]; then
          opt[$word]=1 given[$word]=1
          shift
          continue
        fi
        [[ $# -ge 2 && -n $2 && $2 != --* ]] || fail "$1 needs a value ($command_name --help)"
        check_value "$1" "${option_kinds[$word]}" "$2"
        opt[$word]=$2 given[$word]+="$2 "
        shift 2
        ;;
      *)
        [ -z "$command_text" ] || break
        [[ -n $argument_name && -n $1 && -z ${given[$argument_name]:-} ]] ||
          fail "'$1' belongs to no option ($command_name --help names them)"
        # shellcheck disable=SC2034 # for the scripts
        opt[$argument_name]=$1 given[$argument_name]=1
        shift
        ;;
    esac
  done
  # shellcheck disable=SC2034 # for the scripts
  command_words=("$@")
  [[ -z $command_text || $# -gt 0 ]] || fail "no command is named ($command_name --help)"
}

print_usage() {
  printf 'usage: %s%s [OPTION...]%s\n%s\n\n%s' "$command_name" "${argument_name:+ [${argument_name^^}]}" \
    "${command_text:+ $command_text}" "$1" "$option_usage"
  printf '  %-16s %s\n' --help "this text"
  [ -z "$example_usage" ] || printf '\nfor instance:\n%s' "$example_usage"
}

# check_value OPTION KIND VALUE: KIND is `text`, `LOW..HIGH` (whole numbers of ten digits at most),
# `factor` (0.001 to 1000), or the values that are allowed, with "|" between them.
check_value() {
  local option=$1 kind=$2 value=$3 wanted
  case $kind in
    text) return ;;
    *..*)
      [[ $value =~ ^(0|[1-9][0-9]{0,9})$ ]] && ((value >= ${kind%..*} && value <= ${kind#*..})) && return
      wanted="a whole number from ${kind%..*} to ${kind#*..}"
      [[ ! $value =~ ^0[0-9]+$ ]] || wanted+=" without leading zeros"
      ;;
    factor)
      [[ $value =~ ^([0-9]{0,3}(\.[0-9]{1,3})?|1000)$ && $value =~ [1-9] ]] && return
      wanted="a number from 0.001 to 1000, with three decimals at most"
      ;;
    *)
      [[ $value != *"|"* && "|$kind|" == *"|$value|"* ]] && return
      wanted=${kind//|/, }
      wanted=${wanted%, *}" or "${wanted##*, }
      ;;
  esac
  fail "$option is $wanted, not '$value'"
}
