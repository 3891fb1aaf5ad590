// Find and replace in any bytes, with any texts and flags and both character types: loads, replaces, writes,
// and compares the result with the plain engine.
#include "findreplace/plain_outcome.h"
#include "fuzz_input.h"

using namespace QXFindAndReplace;

namespace {

template <typename CharT>
std::basic_string<CharT> Narrowed(const WString& text) {
  std::basic_string<CharT> result;
  for (const WCHAR unit : text) {
    // A character whose low byte is zero would end a text of bytes.
    if (const auto character = static_cast<CharT>(unit)) result += character;
  }
  return result;
}

// The plain engine supports no repetition with braces, and is too slow for long lines.
template <typename CharT>
bool CanRunReference(const Trial<CharT>& trial) {
  if ((trial.flags & Wildcard) == 0) return trial.bytes.size() <= 4096;
  return trial.bytes.size() <= 600 && trial.find.find(CharT('{')) == std::basic_string<CharT>::npos;
}

template <typename CharT>
void Try(Trial<WCHAR> wide) {
  Trial<CharT> trial;
  trial.bytes = wide.bytes;
  trial.blockBytes = wide.blockBytes;
  trial.find = Narrowed<CharT>(wide.find);
  trial.replace = Narrowed<CharT>(wide.replace);
  trial.flags = wide.flags;
  trial.isPass = wide.isPass && !trial.find.empty();
  trial.asks = wide.asks;
  trial.answers = wide.answers;
  const TrialOutcome<CharT> outcome = RunEngine(trial);
  if (CanRunReference(trial)) Require(outcome == RunReference(trial));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  Trial<WCHAR> trial;
  trial.flags = 1U << input.TakeByte() % 5;  // 16 is not a mode
  const std::uint8_t choices = input.TakeByte();
  if ((choices & 1) != 0) trial.flags |= IgnoreCase;
  if ((choices & 2) != 0) trial.flags |= Wildcard;
  if ((choices & 4) != 0) trial.blockBytes = (4U + input.TakeByte()) * 2;
  trial.asks = (choices & 8) != 0;
  trial.isPass = (choices & 0x30) == 0x10;
  if (trial.asks) {
    for (std::uint32_t answers = input.TakeNumber(); answers != 0; answers >>= 3) {
      trial.answers.push_back(static_cast<ConfirmResult>(answers & 7));
    }
    trial.isPass = false;
  }
  trial.find = input.TakeText();
  trial.replace = input.TakeText();
  const auto rest = input.TakeRest();
  // The rest, sometimes repeated so often that it crosses a block's border.
  const std::size_t repeats = choices == 0xFF ? 60 : 1;
  for (std::size_t i = 0; i < repeats; ++i) trial.bytes.append(rest.begin(), rest.end());
  Try<char>(trial);
  Try<WCHAR>(trial);
  return 0;
}
