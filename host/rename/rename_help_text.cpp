#include "host/command_line/help_text.h"

namespace QxHost {

const char* const kRenameHelp =
    R"help(Templates. What is between brackets is replaced; all other text is unchanged, and [[ is one bracket.
  [N] the old name without its extension   [E] the old extension       [F] the name of the folder
  [C] the counter; [C10,5,3] one of its own: first value, step, digits
  [Y] [M] [D] [h] [m] [s] the present date and time; [M2] in two digits
  [?attributes] a property of the file; --list-properties shows all. [?modified,{yyyy-MM-dd|HHmm}] a date and a
      time in this form, and without one with / and :, which no name may contain; [?size,{n8}] a number in eight
      digits, which is 2147483647 where it is larger
  [N5] five characters from the begin, [N-5] from the end, [N3,4] four from the third, [N3-7] the third to the
      seventh, [N,3] from the third on; the same with E and F. An emoji is two characters

The order is: templates, letter case, --find and --replace. Name and extension are searched separately. Letter case
is that of A to Z alone.

A preview has the old and the new names in two columns. A row begins with
  = if the name is unchanged
  ! if no run can start with it: its name is not possible, or is that of the first row, even in another folder
  ? if the rename would be refused, while the other rows are renamed; with the reason

All renames of a run count as done at once: 1 to 2, 2 to 3 works in any order, and so does an exchange of names, for
which one file is NAME.qxhost-tmp for a moment. With --in-order each is tried once, as it comes. No file is ever
replaced. Ctrl+C ends a run after the rename in progress, and what was done can be undone.

--items FILE reads further ITEMs, one per line (- is standard input); --dry-run shows what --run or --undo would do,
rename by rename; --json writes one JSON object per line. In cmd and PowerShell * and ? in the last name of an ITEM
are found by this program, without hidden files.

Examples:
  qxhost rename --name "[?modified,{yyyy-MM-dd}]_[C]" *.jpg
                     a preview: photos by date and counter, 2026-03-05_01.jpg
  qxhost rename --name "[?modified,{yyyy-MM-dd}]_[C]" --run *.jpg
                     the same, done
  qxhost rename --list-undo
                     the runs that can be undone
  qxhost rename --undo last
                     undo the newest run
  qxhost rename --find _ --replace " " --replace-all --parts name --case words --run *.txt
                     my_old_notes.txt becomes My Old Notes.txt
  qxhost rename --regex --parts name --find "^(.+) - (.+)$" --replace '$2 - $1' *.mp3
                     the two halves of a name exchanged; in a shell, $ is for single quotes
  qxhost rename --name "[F] [C]" --start 10 --save-profile "By folder" *.txt
                     rules kept for later; --list-profiles shows them
  qxhost rename --profile "By folder" --run *.txt
                     and used
  find . -name "*.JPG" | qxhost rename --items - --case lower --run
                     any number of files, in any folders
  qxhost rename --find old --replace new --find " (copy)" --replace "" --save-pairs 1
                     pairs kept as list 1, which F1 brings back in the window; --pairs 1 uses it
  qxhost --dry-run rename --name "[N]_[?size,{n8}]" --run *.mp3
                     what a run would do, rename by rename

Exit status: 0, also for a preview with rows that prevent a run; 2 for a wrong call; 3 if the output could not be
written or the run broke off; 4 if --run could not start because of such a row or without an undo file, a rename
failed or was left out, or a profile was not to be replaced.
)help";

}  // namespace QxHost
