// The three standard streams, as bytes, and the terminal behind standard input.
//
// Output is UTF-8 and goes out as it is: no line end is changed in either build.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace QxHost {

// False if not all could be written.
bool WriteStandardOutput(std::string_view bytes);
void WriteStandardError(std::string_view bytes);

// Whether there is a person to ask.
bool StandardInputIsTerminal();

// One line from the terminal, as UTF-8 without its line end; nothing at the end of input.
std::optional<std::string> ReadTerminalLine();

// The next bytes of standard input, at most `size`. Returns how many: 0 at its end, nothing if it cannot be
// read.
std::optional<std::size_t> ReadStandardInputPart(char* buffer, std::size_t size);

// As many bytes of standard input as asked for, fewer only at its end or where it cannot be read. Answers how
// many.
std::size_t ReadStandardInputBytes(char* buffer, std::size_t size);

}  // namespace QxHost
