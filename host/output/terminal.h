// The three standard streams as bytes, and the terminal of standard input.
//
// Output is UTF-8 and written unchanged: neither build converts line ends.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace QxHost {

// WriteStandardOutput returns false if not all bytes could be written.
bool WriteStandardOutput(std::string_view bytes);
void WriteStandardError(std::string_view bytes);

// Returns whether standard input is a terminal, so that questions can be asked there.
bool StandardInputIsTerminal();

// Reads one line from the terminal and returns it as UTF-8 without its line end; std::nullopt at the end of
// input.
std::optional<std::string> ReadTerminalLine();

// Reads at most `size` bytes of standard input. Returns their number: 0 at the end, std::nullopt for a
// failure.
std::optional<std::size_t> ReadStandardInputPart(char* buffer, std::size_t size);

// Reads `size` bytes of standard input, fewer only at its end or after a failure. Returns their number.
std::size_t ReadStandardInputBytes(char* buffer, std::size_t size);

}  // namespace QxHost
