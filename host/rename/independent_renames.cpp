// Nearly all the time of a rename is spent in the system, which can rename files of different folders at the
// same time. The batch is processed in blocks. A block is divided into parts, each of rows in one folder, and
// two threads take the parts in turn; one of them first reports the block before:
//
//   rows            a\1 a\2 a\3 b\1 b\2 c\1 | c\2 d\1 d\2 e\1 ...        | ends a block
//   parts           [         ] [     ] [ ] | [ ] [     ] [ ]
//   other thread    a\1 a\2 a\3 c\1         | c\2 d\1 d\2
//   calling thread  b\1 b\2                 | reports a\1 to c\1, then e\1
//
// A report renames the item in its tree. The other thread only reads items of its own block, which are not
// yet renamed there, so it needs no lock.
#include "host/rename/independent_renames.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "host/rename/interruption.h"
#include "host/rename/move_item.h"

namespace QxHost {
namespace {

using Velmora::SDK::kRenameIgnored;

constexpr std::size_t kRowsOfBlock = 8192;
// A block of fewer rows is done before a second thread would have begun.
constexpr std::size_t kMinForThreads = 1000;

// The rows [first, last) of a block, all in one folder.
struct Part {
  std::size_t first;
  std::size_t last;
  WString folder;  // ends in a backslash; empty for a root
};

class Block {
 public:
  Block(std::deque<QueuedRename>& renames, bool isDryRun) : renames_(renames), isDryRun_(isDryRun) {}
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;
  ~Block() {
    if (other_.joinable()) other_.join();
  }

  // Prepares to rename the files of the rows [first, last), and starts another thread on them if that helps.
  void Start(std::size_t first, std::size_t last) {
    first_ = first;
    results_.assign(last - first, 0);
    Divide(first, last);
    nextPart_ = 0;
    failure_ = nullptr;
    if (!isDryRun_ && last - first >= kMinForThreads) StartThread();
  }

  // Renames the files with the other thread, or alone. Returns when all are done.
  void Finish() {
    TakeParts();
    if (other_.joinable()) other_.join();
    if (failure_) std::rethrow_exception(failure_);
  }

  // Renames the items whose files were renamed, and reports all rows.
  void Report(FileItemTree& tree, const RenameReport& report) const {
    WString from;
    for (const Part& part : parts_) {
      for (std::size_t row = part.first; row < part.last; ++row) {
        QueuedRename& rename = renames_[row];
        FileItem& item = *rename.item;
        from.assign(part.folder).append(item.Name());
        const DWORD result = results_[row - first_];
        if (result == 0 && !isDryRun_) tree.Rename(item, NameToMakeOf(rename));
        report(from, rename, result);
      }
    }
  }

 private:
  void Divide(std::size_t first, std::size_t last) {
    parts_.clear();
    for (std::size_t row = first; row < last; ++row) {
      const FileItem& item = *renames_[row].item;
      if (parts_.empty() || item.Parent() != renames_[row - 1].item->Parent()) {
        parts_.push_back({row, row, item.Parent() ? item.FolderPath() : WString()});
      }
      parts_.back().last = row + 1;
    }
  }

  // If the system has no thread left, the calling thread renames all.
  void StartThread() {
    try {
      other_ = std::thread([this] {
        try {
          TakeParts();
        } catch (...) {
          failure_ = std::current_exception();
        }
      });
    } catch (const std::system_error&) {
    }
  }

  void TakeParts() {
    WString from;
    WString to;
    for (std::size_t part = nextPart_++; part < parts_.size(); part = nextPart_++) {
      const WString& folder = parts_[part].folder;
      for (std::size_t row = parts_[part].first; row < parts_[part].last; ++row) {
        const QueuedRename& rename = renames_[row];
        const WStringView name = rename.item->Name();
        const WStringView newName = NameToMakeOf(rename);
        DWORD& result = results_[row - first_];
        result = RefusalOf(newName, rename.newName, true, !rename.item->Parent(), name);
        if (result != 0 || isDryRun_) continue;
        if (IsInterrupted()) {
          result = ERROR_CANCELLED;
          continue;
        }
        from.assign(folder).append(name);
        to.assign(folder).append(newName);
        result = MoveItem(from, to);
        if (result == kRenameIgnored) result = ERROR_GEN_FAILURE;  // as a result, 10 means ignored
      }
    }
  }

  std::deque<QueuedRename>& renames_;
  const bool isDryRun_;
  std::size_t first_ = 0;       // row of the batch
  std::vector<DWORD> results_;  // by row of the block
  std::vector<Part> parts_;
  std::atomic<std::size_t> nextPart_ = 0;
  std::exception_ptr failure_;  // of the other thread
  std::thread other_;
};

}  // namespace

void RunIndependent(std::deque<QueuedRename>& renames, FileItemTree& tree, bool isDryRun,
                    const RenameReport& report) {
  Block blocks[] = {{renames, isDryRun}, {renames, isDryRun}};
  Block* done = nullptr;
  Block* next = &blocks[0];
  for (std::size_t first = 0; first < renames.size(); first += kRowsOfBlock) {
    next->Start(first, std::min(first + kRowsOfBlock, renames.size()));
    if (done) done->Report(tree, report);
    next->Finish();
    done = std::exchange(next, next == &blocks[0] ? &blocks[1] : &blocks[0]);
  }
  if (done) done->Report(tree, report);
}

}  // namespace QxHost
