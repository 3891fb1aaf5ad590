// The comments that the host adds to an undo file. Other readers ignore them:
//
//   ;qxhost planned              at the beginning: the run was cut off or is still in progress
//   [INFO] ... [FILES] ...
//   Z:\photos|img1.jpg|img2.jpg
//   Z:\photos|img2.jpg|img3.jpg
//   ;qxhost files of 2           after the entries: the file of each entry whose names do not identify it
//   ;1 26738892                  (colliding_names.h). 26738892 is the number within its volume of the file
//   ;2 26738893                  that was img1.jpg, whatever its present name is.
//
// They are at the end so that they do not reduce the size that is available for entries.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "host/rename/file_index.h"
#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

// By entry; kNoFile if its file is not noted. Empty if no file is.
using NotedFiles = std::vector<FileIndex>;

struct UndoNotes {
  bool isPlan = false;
  NotedFiles files;
};

// Returns the files that now have the old names of the entries, for those entries whose names do not identify
// them.
NotedFiles NoteOldFiles(std::span<const Velmora::SDK::MultiRenameUndoEntry> entries);

// Returns the comment at the beginning of a plan, with its line end.
WStringView PlanMark();

// Returns whether the text begins with this comment, which other comments may precede.
bool HasPlanMark(WStringView text);

// Passes the lines of the noted files to `write`, in pieces; nothing if no file is noted.
void WriteNotedFiles(const NotedFiles& files, const std::function<void(WStringView)>& write);

// Returns where the lines of the noted files begin in a text; npos if no files are noted.
std::size_t FindNotedFiles(WStringView text);

// Reads the lines after the entries, in pieces of any length.
class NotesReader {
 public:
  void Read(WStringView text);

  // Returns the noted files of this number of entries of the same file; `isPart` if the file has more. Empty
  // if the lines are for a different number of entries, because lines were removed or added.
  NotedFiles FilesOf(std::size_t entries, bool isPart) const;

  // Return whether there were other comments, and whether there were other lines.
  bool HasComments() const { return hasComments_; }
  bool HasOtherLines() const { return hasOtherLines_; }
  // Returns whether the text so far ends in an incomplete line that is not a comment.
  bool IsCut() const { return !line_.empty() && line_.front() != W(';'); }
  bool EndsInLine() const { return !line_.empty(); }

 private:
  void TakeLine();

  WString line_;  // the beginning of the current line
  std::size_t count_ = 0;
  bool isBegun_ = false;
  bool hasComments_ = false;
  bool hasOtherLines_ = false;
  NotedFiles files_;
};

}  // namespace QxHost
