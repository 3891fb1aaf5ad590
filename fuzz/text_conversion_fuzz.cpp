// Compares the conversions of text files with plain implementations, also at the ends of the buffers.
#include "filetools/text_conversion.h"

#include <string>

#include "filetools/plain_conversion.h"
#include "frame/host/command_numbers.h"
#include "fuzz_folder.h"
#include "fuzz_input.h"

using namespace Velmora::SDK;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder kFolder;
  constexpr int kCommands[] = {kCommandLineEndsToLf, kCommandLineEndsToCrLf, kCommandLineEndsToCr,
                               kCommandTabsToBlanks};
  FuzzInput input(data, size);
  const int command = kCommands[input.TakeByte() % 4];
  const std::uint32_t width = input.TakeByte() % 21;
  // Padding that moves the text to the end of a buffer.
  const std::size_t filling = input.TakeByte() < 200 ? 0 : 65500 + input.TakeByte() % 64;
  const auto rest = input.TakeRest();
  const std::string text = std::string(filling, 'x') + std::string(rest.begin(), rest.end());
  kFolder.Write("source", text);
  kFolder.Remove("target");
  const WString source = FromUtf8(kFolder.Path("source"));
  Require(ConvertTextFile(source, FromUtf8(kFolder.Path("target")), command, width));
  Require(kFolder.Read("target") == PlainConversion(text, command, width));
  return 0;
}
