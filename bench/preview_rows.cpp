// Measures previews of MultiRename's engine without files and without a host: the time and the memory for
// each row, and how soon a preview stops after a request.
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <thread>
#include <vector>

#include "multirename/engine/multi_rename_engine.h"
#include "multirename/rules/rule_flags.h"

using namespace Velmora::SDK;

namespace {

constexpr std::size_t kFilesOfFolder = 100;

using Clock = std::chrono::steady_clock;

double Seconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

double ProcessorMicroseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

// Names like those with which the complete commands are measured.
WString NameOf(std::size_t row) {
  char name[80];
  std::snprintf(name, sizeof name, "folder %05u_some_file name %03u.TXT",
                static_cast<unsigned>(row / kFilesOfFolder), static_cast<unsigned>(row % kFilesOfFolder));
  return FromUtf8(name);
}

WString FolderOf(std::size_t row) {
  char name[80];
  std::snprintf(name, sizeof name, "Z:\\tmp\\tmp01234567\\rename_by_rules\\folder %05u",
                static_cast<unsigned>(row / kFilesOfFolder));
  return FromUtf8(name);
}

std::size_t BytesInUse() { return mallinfo2().uordblks + mallinfo2().hblkhd; }

SharedItems MakeRows(std::size_t count) {
  auto rows = std::make_shared<MultiRenameItems>();
  for (std::size_t row = 0; row < count; ++row) {
    MultiRenameItem& item = rows->emplace_back();
    // As with rows that are read from the host, neighbors share the text of their folder.
    item.folderPath = row % kFilesOfFolder == 0 ? SharedText(FolderOf(row)) : (*rows)[row - 1].folderPath;
    item.oldName = NameOf(row);
    item.newName = item.oldName;
  }
  return rows;
}

RuleInput Rules(const SharedItems& rows, bool expressions) {
  RuleInput input;
  input.itemsOwner = rows;
  for (MultiRenameItem& row : *rows) input.items.push_back(&row);
  input.filenameTemplate = expressions ? W("[N]") : W("[N]_[C]");
  input.extensionTemplate = W("[E]");
  input.startAt = input.stepBy = W("1");
  input.digits = W("2");
  input.searchFlags = kSearchNameAndExtension | (expressions ? kSearchRegex : 0);
  SearchAndReplaceItems pairs = {{W("some"), W("any")}};
  if (expressions) pairs.emplace_back(W("f(.)le"), W("d$1t"));
  input.searchItems = std::make_shared<const SearchAndReplaceItems>(std::move(pairs));
  return input;
}

class Previews {
 public:
  Previews(std::size_t count, bool expressions) : engine_(nullptr), expressions_(expressions) {
    const std::size_t before = BytesInUse();
    rows_ = MakeRows(count);
    Compile();
    engine_.worker.Start();
    WholePreview();
    bytes_ = static_cast<double>(BytesInUse() - before) / static_cast<double>(count);
    for (const MultiRenameItem& row : *rows_) {
      nameBytes_ += static_cast<double>((row.oldName.size() + row.newName.size()) * sizeof(WCHAR));
    }
    nameBytes_ /= static_cast<double>(count);
  }

  // Without the memory of the old and new names themselves.
  double BytesOfRow() const { return bytes_ - nameBytes_; }

  // Nanoseconds for each row, the best of several previews.
  double CostOfRow() {
    const std::size_t count = rows_->size();
    double best = 1e9;
    for (std::size_t run = 0; run < std::clamp<std::size_t>(1'000'000 / count, 3, 300); ++run) {
      Compile();
      best = std::min(best, WholePreview());
    }
    return best / static_cast<double>(count) * 1e9;
  }

  // The microseconds from the request to stop to the idle worker, sorted: by the clock, and of processor
  // time.
  struct StopTimes {
    std::vector<double> clock;
    std::vector<double> processor;
  };
  StopTimes Stops(int count) {
    const double whole = WholePreview();
    StopTimes times;
    for (int stop = 0; stop < count; ++stop) {
      Compile();
      engine_.worker.WantPreview();
      engine_.worker.Wake();
      std::this_thread::sleep_for(std::chrono::duration<double>(whole * (stop % 8 + 1) / 10));
      const Clock::time_point begin = Clock::now();
      const double worked = ProcessorMicroseconds();
      engine_.worker.StopCurrent();
      times.processor.push_back(ProcessorMicroseconds() - worked);
      times.clock.push_back(Seconds(Clock::now() - begin) * 1e6);
    }
    std::ranges::sort(times.clock);
    std::ranges::sort(times.processor);
    return times;
  }

 private:
  void Compile() {
    if (!CompileRules(engine_, Rules(rows_, expressions_))) std::abort();
  }
  // The processor time of a complete preview, in seconds.
  double WholePreview() {
    engine_.worker.WantPreview();
    const std::clock_t begin = std::clock();
    engine_.worker.Wake();
    engine_.worker.WaitUntilIdle();
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
  }

  MultiRenameEngine engine_;
  SharedItems rows_;
  bool expressions_;
  double bytes_ = 0;
  double nameBytes_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 3 || std::atoi(arguments[1]) <= 0) {
    std::fputs("usage: preview_rows ROWS plain|expressions|stop\n", stderr);
    return 2;
  }
  const std::string what = arguments[2];
  Previews previews(static_cast<std::size_t>(std::atoi(arguments[1])), what == "expressions");
  if (what == "stop") {
    const Previews::StopTimes times = previews.Stops(200);
    for (const std::vector<double>& each : {times.clock, times.processor}) {
      std::printf("%.1f %.1f\n", each[each.size() / 2], each.back());
    }
  } else {
    std::printf("%.1f %.1f\n", previews.CostOfRow(), previews.BytesOfRow());
  }
  return 0;
}
