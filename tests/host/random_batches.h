// Random trees of files with random batches of renames, and a reference model of a batch: a map from paths to
// contents in which all renames happen at once.
#pragma once

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "host/rename/rename_batch.h"
#include "recorded_output.h"
#include "support/scratch_folder.h"

namespace QxHost {

// Maps paths below the scratch folder to contents. The contents of a folder are "/".
using PlainTree = std::map<WString, std::string>;

struct PlainRename {
  WString path;
  WString newName;
};

struct PlainOutcome {
  std::vector<u32> results;
  PlainTree tree;
};

class RandomBatches {
 public:
  explicit RandomBatches(std::uint32_t seed) : random_(seed) {
    scratch_.Write(W("probe"), "");
    ignoresCase_ = scratch_.Exists(W("PROBE"));
    std::filesystem::remove(scratch_.NativePath(W("probe")));
  }

  std::size_t Below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
  }

  WString PathOf(const WString& path) const { return scratch_.Path(path); }

  // Creates a tree of at most three levels on disk, replacing the previous one.
  PlainTree MakeTree() {
    PlainTree tree;
    std::vector<WString> folders = {W("")};
    const std::size_t count = 3 + Below(6);
    for (std::size_t number = 0; number < count; ++number) {
      const WString folder = folders[Below(folders.size())];
      const WString path = folder + RandomName();
      if (HasEqualPath(tree, path)) continue;
      const bool isFolder = Below(3) == 0 && std::count(folder.begin(), folder.end(), W('\\')) < 2;
      tree[path] = isFolder ? "/" : "content " + std::to_string(number);
      if (isFolder) folders.push_back(path + W('\\'));
    }
    WriteTree(tree);
    return tree;
  }

  void WriteTree(const PlainTree& tree) {
    for (const WString& name : scratch_.Names()) std::filesystem::remove_all(scratch_.NativePath(name));
    for (const auto& [path, content] : tree) {
      if (content == "/") {
        scratch_.MakeFolder(path);
      } else {
        scratch_.Write(path, content);
      }
    }
  }

  PlainTree ReadTree() const {
    PlainTree tree;
    ReadFolder(W(""), tree);
    return tree;
  }

  std::vector<PlainRename> MakeBatch(const PlainTree& tree) {
    std::vector<PlainRename> batch;
    for (const auto& [path, content] : tree) {
      if (Below(5) != 0) batch.push_back({path, RandomName()});
    }
    std::shuffle(batch.begin(), batch.end(), random_);
    return batch;
  }

  std::vector<u32> RunItems(const std::vector<PlainRename>& batch, bool dryRun) {
    FileItemTree items;
    return Run(batch, items, dryRun, [&](RenameBatch& queued, const PlainRename& rename) {
      queued.AddByItem(items.Find(scratch_.Path(rename.path)), rename.newName.c_str(), nullptr);
    });
  }

  std::vector<u32> RunPaths(const std::vector<PlainRename>& batch, bool dryRun) {
    FileItemTree items;
    return Run(batch, items, dryRun, [&](RenameBatch& queued, const PlainRename& rename) {
      queued.AddByPath(scratch_.Path(rename.path).c_str(), rename.newName.c_str(), nullptr);
    });
  }

  // Returns the renames that undo those that were done: from the new name to the old one, in the folder's
  // original path.
  static std::vector<PlainRename> Back(const std::vector<PlainRename>& batch,
                                       const std::vector<u32>& results) {
    std::vector<PlainRename> back;
    for (std::size_t row = 0; row < batch.size(); ++row) {
      const WString folder = FolderOf(batch[row].path);
      if (results[row] == 0) {
        back.push_back({folder + batch[row].newName, batch[row].path.substr(folder.size())});
      }
    }
    return back;
  }

  // Returns the outcome of all renames at once. Of two renames to the same name the first gets it; a rename
  // onto an existing file fails, and so do those that wait for it.
  PlainOutcome Model(const PlainTree& tree, const std::vector<PlainRename>& batch) const {
    PlainOutcome outcome;
    outcome.results.assign(batch.size(), 0);
    std::vector<u32>& results = outcome.results;
    for (std::size_t row = 0; row < batch.size(); ++row) {
      if (FolderOf(batch[row].path) + batch[row].newName == batch[row].path) results[row] = 10;
    }
    for (std::size_t row = 0; row < batch.size(); ++row) {
      for (std::size_t other = 0; other < row; ++other) {
        const bool bothMove =
            results[row] == 0 && results[other] != 10 && Moves(batch[row]) && Moves(batch[other]);
        if (bothMove && Target(batch[row]) == Target(batch[other])) results[row] = 183;
      }
    }
    for (bool isChanged = true; isChanged;) {
      isChanged = false;
      for (std::size_t row = 0; row < batch.size(); ++row) {
        if (results[row] != 0 || !Moves(batch[row]) || !IsKept(tree, batch, results, Target(batch[row])))
          continue;
        results[row] = 183;
        isChanged = true;
      }
    }
    for (const auto& [path, content] : tree) outcome.tree[NewPath(path, batch, results)] = content;
    return outcome;
  }

 private:
  WString RandomName() {
    static const std::vector<WString> kNames = {W("a"), W("b"), W("c"), W("d"), W("e"), W("A"), W("B")};
    return kNames[Below(kNames.size())];
  }

  static WString FolderOf(const WString& path) { return path.substr(0, path.rfind(W('\\')) + 1); }

  WString Key(WString path) const {
    for (WCHAR& character : path) {
      if (ignoresCase_ && character >= W('A') && character <= W('Z')) character += W('a') - W('A');
    }
    return path;
  }
  WString Target(const PlainRename& rename) const { return Key(FolderOf(rename.path) + rename.newName); }
  bool Moves(const PlainRename& rename) const { return Target(rename) != Key(rename.path); }

  bool HasEqualPath(const PlainTree& tree, const WString& path) const {
    return std::any_of(tree.begin(), tree.end(),
                       [&](const auto& entry) { return Key(entry.first) == Key(path); });
  }

  bool IsKept(const PlainTree& tree, const std::vector<PlainRename>& batch, const std::vector<u32>& results,
              const WString& target) const {
    for (std::size_t row = 0; row < batch.size(); ++row) {
      if (Key(batch[row].path) == target && results[row] == 0 && Moves(batch[row])) return false;
    }
    return HasEqualPath(tree, target);
  }

  static WString NewPath(const WString& path, const std::vector<PlainRename>& batch,
                         const std::vector<u32>& results) {
    if (path.empty()) return {};
    const WString folder = FolderOf(path);
    WString name = path.substr(folder.size());
    for (std::size_t row = 0; row < batch.size(); ++row) {
      if (batch[row].path == path && results[row] == 0) name = batch[row].newName;
    }
    if (folder.empty()) return name;
    return NewPath(folder.substr(0, folder.size() - 1), batch, results) + W('\\') + name;
  }

  void ReadFolder(const WString& folder, PlainTree& tree) const {
    for (const auto& entry : std::filesystem::directory_iterator(scratch_.NativePath(folder))) {
      const WString path = folder + entry.path().filename().string<WCHAR>();
      const bool isFolder = entry.is_directory();
      tree[path] = isFolder ? "/" : scratch_.Read(path);
      if (isFolder) ReadFolder(path + W('\\'), tree);
    }
  }

  template <typename Add>
  std::vector<u32> Run(const std::vector<PlainRename>& batch, FileItemTree& items, bool dryRun, Add add) {
    FileOperation operation(items, *reporter_, recorded_.output, dryRun);
    RenameBatch queued;
    for (const PlainRename& rename : batch) add(queued, rename);
    operation.RunBatch(&queued, nullptr);
    std::vector<u32> results;
    for (const QueuedRename& rename : queued.renames) results.push_back(rename.result);
    return results;
  }

  std::mt19937 random_;
  ScratchFolder scratch_;
  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
  bool ignoresCase_ = false;
};

}  // namespace QxHost
