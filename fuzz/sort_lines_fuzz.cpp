// Sorts any file with any options: complete runs on the disk, and comparisons of the fast sorting methods
// with the plain one in memory.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "data/data_reader.h"
#include "fuzz_input.h"
#include "linesorter/engine/line_loader.h"
#include "linesorter/engine/line_sort.h"
#include "linesorter/engine/sort_file.h"
#include "linesorter/engine/sort_keys.h"
#include "linesorter/engine/sort_lines_exception.h"

using namespace WQLineSorter;

namespace {

// A temporary folder for the whole run, removed at its end.
class Scratch {
 public:
  Scratch()
      : folder_(std::filesystem::temp_directory_path() / ("sort_lines_fuzz." + std::to_string(std::rand()))) {
    while (!std::filesystem::create_directory(folder_)) folder_ += "x";
  }
  ~Scratch() { std::filesystem::remove_all(folder_); }
  std::filesystem::path File(const char* name) const { return folder_ / name; }
  void Empty() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) std::filesystem::remove(entry);
  }

 private:
  std::filesystem::path folder_;
};

SortLinesOptions TakeOptions(FuzzInput& input) {
  SortLinesOptions options = {};
  options.options = input.TakeNumber();
  options.keepLinesTop = input.TakeByte() % 8;
  options.keepLinesBottom = input.TakeByte() % 8;
  // Usually small, sometimes near the maximum.
  const auto takePlace = [&input] {
    const std::uint8_t byte = input.TakeByte();
    return byte < 0xF0 ? byte % 70U : ~std::uint32_t{0} - byte % 16U;
  };
  options.lineOffset = takePlace();
  options.subStringLen = takePlace();
  options.lineItem = takePlace();
  options.matchCharA = input.TakeByte();
  options.matchChar = static_cast<std::uint16_t>(options.matchCharA | input.TakeByte() % 2 << 8);
  for (std::size_t length = input.TakeByte() % 24U, i = 0; i < length; ++i) {
    options.dateFormat[i] = static_cast<char>(input.TakeByte());
  }
  return options;
}

template <typename CharT>
void SortInMemory(std::span<const std::uint8_t> bytes, const SortLinesOptions& options) {
  WQDR::MemoryDataReader reader(bytes.data(), bytes.size());
  const auto data = ReadLines<CharT>(reader);
  try {
    ComputeSortKeys<CharT>(data->lines, options);
  } catch (const QXLineSorterException&) {
    return;
  }
  const LineRange range = MovableRange(data->lines, options);
  auto plain = data->lines;
  SortLineRange<CharT>(data->lines, range, options);
  SortLineRangeReference<CharT>(plain, range, options);
  for (std::size_t i = 0; i < plain.size(); ++i) Require(plain[i].text == data->lines[i].text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Scratch scratch;
  FuzzInput input(data, size);
  const SortLinesOptions options = TakeOptions(input);
  // The rest, repeated so often that it crosses a block's border.
  const std::size_t repeats = input.TakeByte() % 16 == 0 ? 40 : 1;
  const auto rest = input.TakeRest();
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < repeats; ++i) bytes.insert(bytes.end(), rest.begin(), rest.end());

  try {
    SortInMemory<char>(bytes, options);
    SortInMemory<WCHAR>(bytes, options);
  } catch (const std::bad_alloc&) {
    // A line that fills a block.
  }

  const auto source = scratch.File("source");
  std::ofstream(source, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  SortResult result;
  const WString target = FromUtf8(scratch.File("target").string());
  const DWORD error = SortFile(result, FromUtf8(source.string()), target, options);
  Require(error == result.errorCode && (error == 0) == result.message.empty());
  Require(std::filesystem::file_size(source) == bytes.size());
  scratch.Empty();
  return 0;
}
