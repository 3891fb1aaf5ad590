// Compares the Base64 decoder with a plain implementation, and parses arbitrary headers.
#include "filetools/base64.h"

#include <memory>
#include <optional>
#include <string>

#include "filetools/mime_header.h"
#include "filetools/plain_base64.h"
#include "fuzz_input.h"

namespace {

// The output is its own heap block, so that a write past its end is detected.
void Decode(const std::string& text, std::uint32_t room) {
  const auto output = std::make_unique<unsigned char[]>(room);
  std::uint32_t decoded = room;
  CBase64 decoder;
  const std::string expected = PlainBase64::DecodedGroups(text);
  const bool ok = decoder.Decode(text.data(), text.size(), output.get(), &decoded);
  // Before the last group there must be space for four bytes.
  const bool fits = text.size() < 4 || expected.size() + 4 <= room;
  Require(ok == fits);
  if (ok) Require(std::string(output.get(), output.get() + decoded) == expected);
}

void Header(const std::string& text) {
  const std::size_t end = FindHeaderEnd(text);
  Require(end <= text.size());
  if (end != 0) Require(text[end - 1] == '\n');
  const std::optional<std::string_view> name = FindEncodedName(text);
  if (!name) return;
  Require(name->find_first_of("\"\r\n") == std::string_view::npos);
  Require(text.find("MIME-Version") != std::string::npos);
  Require(text.find("name=\"" + std::string(*name) + "\"") != std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const std::uint32_t room = input.TakeByte();
  const auto rest = input.TakeRest();
  const std::string text(rest.begin(), rest.end());
  Decode(text, room);
  Decode(text, 65536);
  Header(text);
  Header("MIME-Version: 1.0\r\n" + text);
  return 0;
}
