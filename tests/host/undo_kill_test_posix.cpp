// Runs and undos that are killed at any step, fail, are interrupted or are repeated: afterwards an undo gives
// every file its own name back. Each call is a separate process, which ends at a chosen rename.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <random>

#include "host/rename/interruption.h"
#include "host/verbs/run_qxhost.h"
#include "platform/posix/files/faults.h"
#include "support/random_cases.h"
#include "support/scratch_folder.h"

namespace QxHost {
namespace {

namespace Faults = Platform::Faults;

constexpr int kKilled = 99;  // the exit status of a process that was killed
constexpr int kRandomKills = kUnderSanitizers ? 20 : 100;
// The distance of the steps at which a call is ended: processes start slowly under sanitizers.
constexpr int kEachStep = kUnderSanitizers ? 3 : 1;

// What happens to a call at its n-th rename, counted from 1.
struct Fate {
  int kill = 0;
  int fail = 0;
  int interrupt = 0;
};

class KilledCalls {
 public:
  // Maps file numbers of the file system to paths in the tree.
  using Files = std::map<ino_t, std::string>;

  // Creates the files anew, in this order. A path that ends in a separator is a folder.
  void Make(const std::vector<std::string>& files) {
    std::filesystem::remove_all(Root());
    std::filesystem::remove_all(scratch_.NativePath(W("config")));
    std::filesystem::create_directories(Root());
    for (const std::string& file : files) {
      if (file.ends_with('/')) {
        std::filesystem::create_directories(Root() / file);
      } else {
        std::filesystem::create_directories((Root() / file).parent_path());
        scratch_.Write(W("tree\\") + WString(file.begin(), file.end()), file);
      }
    }
  }

  Files Now() const {
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Root())) {
      struct stat found {};
      EXPECT_EQ(lstat(entry.path().c_str(), &found), 0);
      files[found.st_ino] = std::filesystem::relative(entry.path(), Root()).string();
    }
    return files;
  }

  // Runs `qxhost rename` with these arguments and returns its exit status.
  int Call(const std::vector<std::string>& arguments, const Fate& fate = {}) const {
    const pid_t process = fork();
    if (process == 0) {
      Silence();
      Meet(fate);
      std::vector<std::string> all = {"--config", scratch_.NativePath(W("config")).string(), "rename"};
      all.insert(all.end(), arguments.begin(), arguments.end());
      _exit(RunQxHost(all));
    }
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status));
    return WEXITSTATUS(status);
  }

  // Renames the items to 01, 02, ... in their order.
  int Number(const std::vector<std::string>& items, const Fate& fate) const {
    std::vector<std::string> arguments = {"--run", "--name", "[C]", "--digits", "2", "--extension", ""};
    for (const std::string& item : items) arguments.push_back((Root() / item).string());
    return Call(arguments, fate);
  }

  int Undo(const Fate& fate = {}) const { return Call({"--undo", "last"}, fate); }

  std::vector<WString> UndoFiles() const {
    return scratch_.Exists(W("config\\Undo")) ? scratch_.Names(W("config\\Undo")) : std::vector<WString>();
  }

 private:
  std::filesystem::path Root() const { return scratch_.NativePath(W("tree")); }

  static void Silence() {
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(nothing, STDOUT_FILENO);
    dup2(nothing, STDERR_FILENO);
  }

  static void Meet(const Fate& fate) {
    Faults::Clear();
    if (fate.fail != 0) Faults::Fail("MoveFileW", fate.fail, ERROR_ACCESS_DENIED);
    if (fate.kill != 0) Faults::Before("MoveFileW", fate.kill, [] { _exit(kKilled); });
    if (fate.interrupt != 0) Faults::Before("MoveFileW", fate.interrupt, Interrupt);
  }

  ScratchFolder scratch_;
};

// Trees whose renames exchange names, form chains, or rename folders above other items.
struct Numbered {
  std::vector<std::string> files;
  std::vector<std::string> items;
  bool hasCollidingNames = true;
};

const std::vector<Numbered>& NumberedTrees() {
  static const std::vector<Numbered> kTrees = {
      {{"a", "b", "c"}, {"c", "a", "b"}, false},
      {{"01", "02"}, {"02", "01"}},
      {{"01", "02", "03", "04"}, {"03", "01", "02", "04"}},
      {{"00x", "01", "02", "03"}, {"00x", "01", "02", "03"}},
      {{"01/", "02/", "01/01", "01/02", "02/01", "02/02"}, {"02", "01", "01/02", "01/01", "02/02", "02/01"}},
      {{"02/", "02/x", "03/", "03/old"}, {"02/x", "03/old", "02", "03"}},
      {{"04/", "04/05/", "04/05/06", "04/07", "01"}, {"04/05/06", "04", "01", "04/07", "04/05"}},
  };
  return kTrees;
}

TEST(UndoKillTest, ARunAndItsUndoMayBeKilledAtEveryStep) {
  KilledCalls killer;
  for (const Numbered& tree : NumberedTrees()) {
    bool isRunKilled = true;
    for (int kill = 1; isRunKilled; kill += kEachStep) {
      bool isUndoKilled = true;
      for (int killUndo = 1; isUndoKilled; killUndo += kEachStep) {
        SCOPED_TRACE(tree.items.front() + " run " + std::to_string(kill) + " undo " +
                     std::to_string(killUndo));
        killer.Make(tree.files);
        const KilledCalls::Files before = killer.Now();
        isRunKilled = killer.Number(tree.items, {.kill = kill}) == kKilled;
        isUndoKilled = killer.Undo({.kill = killUndo}) == kKilled;
        // If only the names show what to undo, files that were already restored are not found.
        if (isUndoKilled) {
          EXPECT_EQ(killer.Undo(), isRunKilled || tree.hasCollidingNames || killUndo == 1 ? 0 : 4);
        }
        ASSERT_EQ(killer.Now(), before);
        EXPECT_EQ(killer.Undo(), 4);  // nothing is left to take back
        ASSERT_EQ(killer.Now(), before);
        ASSERT_EQ(killer.UndoFiles().size(), 1u);
      }
    }
  }
}

// An undo that fails in part counts as done, and can be repeated.
TEST(UndoKillTest, AnUndoMayFailOrBeInterruptedAtEveryStepAndBeRepeated) {
  KilledCalls killer;
  for (const Numbered& tree : NumberedTrees()) {
    for (const bool isInterrupted : {false, true}) {
      for (int step = 1; step <= static_cast<int>(tree.items.size()) + 2; step += kEachStep) {
        SCOPED_TRACE(tree.items.front() + (isInterrupted ? " interrupt " : " fail ") + std::to_string(step));
        killer.Make(tree.files);
        const KilledCalls::Files before = killer.Now();
        ASSERT_EQ(killer.Number(tree.items, {}), 0);
        ASSERT_NE(killer.Now(), before);
        Fate fate;
        (isInterrupted ? fate.interrupt : fate.fail) = step;
        killer.Undo(fate);
        killer.Undo();
        ASSERT_EQ(killer.Now(), before);
        killer.Undo();
        ASSERT_EQ(killer.Now(), before);
      }
    }
  }
}

Numbered RandomTree(std::mt19937& random) {
  const auto below = [&random](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  };
  Numbered tree;
  std::vector<std::string> folders = {""};
  const std::size_t count = 2 + below(8);
  for (std::size_t number = 0; number < count; ++number) {
    const std::size_t name = 1 + below(count + 2);
    const std::string path = folders[below(folders.size())] + (name < 10 ? "0" : "") + std::to_string(name);
    if (std::ranges::find(tree.items, path) != tree.items.end()) continue;
    const bool isFolder = below(3) == 0;
    tree.items.push_back(path);
    tree.files.push_back(isFolder ? path + "/" : path);
    if (isFolder) folders.push_back(path + "/");
  }
  std::shuffle(tree.items.begin(), tree.items.end(), random);
  if (below(3) == 0 && tree.items.size() > 1) tree.items.pop_back();
  return tree;
}

TEST(UndoKillTest, RandomRunsThatFailAndAreKilledComeBackByUndosThatAreKilled) {
  KilledCalls killer;
  std::mt19937 random(815);
  int killed = 0;
  int killedUndos = 0;
  for (int number = 0; number < kRandomKills; ++number) {
    const Numbered tree = RandomTree(random);
    const auto step = [&] { return static_cast<int>(1 + random() % (tree.items.size() + 3)); };
    Fate fate;
    if (random() % 3 != 0) fate.kill = step();
    if (random() % 3 == 0) fate.fail = step();
    if (random() % 8 == 0) fate.interrupt = step();
    SCOPED_TRACE("case " + std::to_string(number));
    killer.Make(tree.files);
    const KilledCalls::Files before = killer.Now();
    killed += killer.Number(tree.items, fate) == kKilled;
    if (killer.UndoFiles().empty()) {
      ASSERT_EQ(killer.Now(), before);
      continue;
    }
    for (std::size_t undos = random() % 3; undos > 0; --undos) {
      Fate undoFate;
      (random() % 3 == 0 ? undoFate.interrupt : undoFate.kill) = step();
      if (random() % 4 == 0) undoFate.fail = step();
      killedUndos += killer.Undo(undoFate) == kKilled;
    }
    killer.Undo();
    ASSERT_EQ(killer.Now(), before) << testing::PrintToString(tree.items) << " kill " << fate.kill << " fail "
                                    << fate.fail << " interrupt " << fate.interrupt;
    killer.Undo();
    ASSERT_EQ(killer.Now(), before);
  }
  EXPECT_GT(killed, kRandomKills / 5);
  EXPECT_GT(killedUndos, kRandomKills / 8);
}

}  // namespace
}  // namespace QxHost
