#include "tools/log/command/options.h"

namespace tolvane::logtool {

std::string_view HelpText() {
  return R"(usage: tolvane-log info [OPTIONS] FILES
       tolvane-log convert --to FORMAT [OPTIONS] FILES

Reads csv logs of Tolvane, KLyymmddhh-NNN.csv. The files are taken in the order of these names; if one
has another name, all are taken as they come. On Linux they are read in code page 932, in which a
Japanese Windows writes them.

info tells of each run: what its head says, its frames, and for each identifier how many there are,
the cycle and the lengths. Then where frames seem to be missing: where an identifier, or all, were
silent for longer than some of their cycles. A jump of the adapter's clock is told, and is no silence.
It also tells where files seem to be missing between others, lines at the end of one, or the end of a
run.
  --gap N       so many cycles (5)
  --json        for programs

convert writes the files of one run as one, on the standard output. It tells what seems to be missing
of the files as info does, and how often a time steps back.
  --to FORMAT   candump  as candump -L writes it
                asc      as log2asc of can-utils writes it
                csv      a table with the same columns in each line
  --out FILE    into a new file

Both:
  --mend-clock  takes out the jump that the time line of a CANUSB makes where its clock first starts
                over, after 60 seconds, or a board's after 429.491. A silence of the bus that ends just
                there looks the same and is taken out too. Of a board whose stamps are microseconds in
                a signed word, as those of the simulated one, it takes out the step back where they
                turn negative, every 4295 seconds, and the jump ahead at the frame behind the first, if
                the bus was not silent for longer than a minute there; any other step back stays, and
                so do the negative times of a log that begins behind it. At 429.491 seconds such a
                board has no jump, and only a silence can look like one. All this takes the division
                ratio 1
  --keep        leaves out lines that cannot be read, and files, in place of ending there; without
                it, a file of --out is then removed again
  --help, --version

Zeros that identifiers of 29 bits have lost to the next file are mended at all times. The absolute
time is reckoned from the date in the first file with a record, which has whole seconds, in this
computer's zone. A full file is written right behind its last record; the last one of a run, so the only
one too, at the disconnect, and absolute times are then late by the silence ahead of that. A time that
is negative is written as 0, but in the column ms of csv. The status is 0, 1 if something could not be
read or written, and 2 for words that are not understood.

Other formats: can_logconvert of python3-can makes .blf and .trc of candump or asc, by the names of its
two files; from its version 4.2 on, with asammdf, .mf4 too. It also makes .db, but in Debian's
version 4.1 only the first few hundred frames come into it.
  tolvane-log convert --to candump --out run.log KL26112009-*.csv
  can_logconvert run.log run.blf
)";
}

}  // namespace tolvane::logtool
