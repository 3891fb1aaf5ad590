#include "host/command_line/help_text.h"

namespace QxHost {

const char* const kHelpAbout =
    "qxhost loads the QXUtils module and runs its commands on real files, without the file manager.\n"
    "Files are really changed: try a rename with --dry-run first, and everything else on a copy.";

const char* const kHelpFooter =
    R"(ITEMs and other paths may be written /a/b, Z:\a\b or relative to the current folder. `qxhost VERB --help`
shows the arguments of a verb; options may be before the verb or after it.

Commands. A command of the menu has a number and a name, and either is accepted: `command 30150 a.txt` and
`command sort-lines a.txt` are the same. The beginning of a name is enough if it is unique: `command sort`.
`qxhost menu` lists them.

Questions. A command may ask something: whether to rename, what to replace. Each --answer answers the next
question: ok, yes, no, cancel, text=TEXT (ok takes the text that is offered) or choice=ROWTEXT. If no answer is
left you are asked on the terminal, where the first letter of a button is enough; if there is no terminal, the
question is cancelled, and a note on standard error says so.

Renames. The renames of a command are planned as a whole: a name that one of them releases is free for another, so
that img1, img2 and img3 can become img2, img3 and img4, and two files can swap their names. Of two renames to one
name the first in order gets it; a file that exists is never replaced. While names are swapped, a file may be called
NAME.qxhost-tmp. With --in-order each rename is tried once, in the order of the ITEMs, as it comes.

Dialogs. In the native build a dialog is filled with --form FIELD=VALUE and closed with --answer ok. To see the
fields of a command's dialog with their present values, fill a field that it does not have; nothing is done then:
  qxhost --form help= command sort-lines a.txt
Fields are filled in the order in which they are given, and a field that is disabled takes no value: sortBy=item
comes before separator. Switches are 0 or 1.
  replace-x-with-y  find; replace; part: 1 the name without its extension, 2 the extension with its dot, 3 the
                    whole name
  sort-lines        saveAs: new, keep-backup or delete-backup; targetName; keepLinesTop, keepLinesBottom;
                    startPosition; skipLeadingSpace; sortBy: line, substring (length, endCharacter,
                    endAtWhitespace) or item (separator, item); sortMethod: text (languageAware, ignoreCase,
                    naturalNumbers), number or date (dateFormat); reverse; removeBlank
  find-and-replace  find; replace; findMode: One, Many, ManySame or Multiline; saveMode: new, keep-backup or
                    delete-backup; targetName; wildcard; ignoreCase; forceUtf8; silent
  create-link       linkKind: hard, junction, symbolic or shortcut; linkName; targetName
  add-access        userName: a user or group; access: read, write, modify or full
A command with several dialogs: --form DIALOG.FIELD=VALUE fills the next dialog of that name, and a field that is
given again belongs to the one after. Find and Replace asks about each match with the dialog ConfirmReplaceDlg,
whose field result is replace, all, next or cancel; --answer ok without it is replace.

Examples:
  qxhost menu                                      the commands, with their numbers and names
  qxhost --answer ok command upper-case *.txt      names in upper case
  qxhost --dry-run --answer ok command title-case *
                                                   what Title Case would do
  qxhost --answer text=log command set-extension *.txt
                                                   another extension: a.txt becomes a.log
  qxhost --form find=_ --form replace=- --answer ok --answer ok command replace-x-with-y *
                                                   replace _ with -: first the dialog, then the question
  qxhost --answer text=new --focus a.c command rename-same-base-name
                                                   a.c, a.h and a.o become new.c, new.h and new.o
  find . -name '*.JPG' | qxhost --items - --answer ok command lower-case-extension
                                                   extensions in lower case, for any number of files
  qxhost --answer yes command line-ends-to-lf *.txt
                                                   Unix line ends
  qxhost rename --name "[F]_[C]" *.jpg             by rules: a preview; --run does it, and --undo last undoes
                                                   it. `qxhost rename --help` has more
  qxhost script                                    the script commands and their parameters
  qxhost script SortLines FILE=a.txt "TARGET=*.sorted" SORTBY=item "ITEMSEP=;" ITEM=2 SORTAS=num
                                                   by the number after the first semicolon, into a.sorted
  qxhost --form sortBy=item --form "separator=;" --form item=2 --form sortMethod=number
         --answer ok --answer ok command sort-lines a.txt
                                                   the same from the menu, into a_sorted.txt: first the
                                                   dialog, then the closing message
  qxhost --form find=grey --form replace=gray --form ConfirmReplaceDlg.result=next
         --form ConfirmReplaceDlg.result=all --answer ok --answer ok --answer ok --answer ok
         command find-and-replace *.txt            the first match stays and all others are replaced: the
                                                   dialog, two questions, and the closing message
  qxhost columns *                                 owner, access and alternate streams of each
  qxhost --form userName=nobody --form access=read --answer ok command add-access a.txt
                                                   nobody may read a.txt
  qxhost --json menu                               one JSON object per line, for programs

Exit status:
  0  the module handled the command; also if a question was cancelled
  1  the module did not handle it: a command that is still to come, or a script command that did nothing
  2  the call was wrong; the message says what to change
  3  the module could not be loaded or failed
  4  the module handled the command, but it reported files at which it failed, or a rename failed)";

}  // namespace QxHost
