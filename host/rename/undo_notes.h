// What the host writes into an undo file beside its lines, as comments, which other readers pass over:
//
//   ;qxhost planned              at its begin: the run was cut off, or is not at its end
//   [INFO] ... [FILES] ...
//   Z:\photos|img1.jpg|img2.jpg
//   Z:\photos|img2.jpg|img3.jpg
//   ;qxhost files of 2           after its entries: which file each of them is about, as far as names
//   ;1 26738892                  do not say it (meeting_names.h). 26738892 is the number of the file
//   ;2 26738893                  that was img1.jpg within its volume, whatever its name is now.
//
// They come last so that they take nothing of the size that is read of entries.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "host/rename/file_index.h"
#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

// By entry, kNoFile where it is not noted. Empty if none is.
using NotedFiles = std::vector<FileIndex>;

struct UndoNotes {
  bool isPlan = false;
  NotedFiles files;
};

// The files of the entries under their old names, of those whose names meet.
NotedFiles NoteOldFiles(std::span<const Velmora::SDK::MultiRenameUndoEntry> entries);

// The comment at the begin of a plan, with its line end.
WStringView PlanMark();

// Whether a text begins with it, or with other comments and it.
bool HasPlanMark(WStringView text);

// Hands the lines of the files to `write`, piece by piece; nothing if there are none.
void WriteNotedFiles(const NotedFiles& files, const std::function<void(WStringView)>& write);

// Where the lines of the files begin in a text; npos if it has none.
std::size_t FindNotedFiles(WStringView text);

// Reads lines after the entries, of any length, as they come.
class NotesReader {
 public:
  void Read(WStringView text);

  // The files of so many entries, which were read of the same file; `isPart` if there are more in it. Empty
  // if the lines are of another number of entries: then someone has taken lines away or added some.
  NotedFiles FilesOf(std::size_t entries, bool isPart) const;

  // Whether there were lines that are not of this kind: comments of others, and any other line.
  bool HasComments() const { return hasComments_; }
  bool HasOtherLines() const { return hasOtherLines_; }
  // Whether the text so far ends in a line without its end, that is no comment.
  bool IsCut() const { return !line_.empty() && line_.front() != W(';'); }
  bool EndsInLine() const { return !line_.empty(); }

 private:
  void TakeLine();

  WString line_;  // the beginning of the present one
  std::size_t count_ = 0;
  bool isBegun_ = false;
  bool hasComments_ = false;
  bool hasOtherLines_ = false;
  NotedFiles files_;
};

}  // namespace QxHost
