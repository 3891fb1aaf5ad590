// Files in Base64 with a small MIME header that keeps the original name.
#pragma once

#include <cstdint>
#include <optional>

#include "filetools/file_streams.h"
#include "frame/host/host_app.h"
#include "platform/text.h"

// Encodes `source` to `target`, which is overwritten if it exists. Returns false if a file cannot be opened
// or a read or write fails; a partial target then remains.
bool EncodeFileBase64(const WString& source, const WString& target);

// Decodes `source`, with `skipHeader` from FindBase64Start on, to `target`, which is overwritten if it
// exists. Returns false if a file cannot be opened or a write fails; a partial target then remains. A failed
// read ends the text, and the result is true (C-424).
bool DecodeFileBase64(const WString& source, const WString& target, bool skipHeader);

// Returns the first name in the file's header; std::nullopt if the header has no name, and the empty text if
// the name is not allowed (decoded_name.h).
std::optional<WString> GetEncodedFileName(const WString& path);

// Returns the offset of the text after the header: after the first empty line among the fourth to the tenth
// line; 0 if there is no such line. The file must be at its beginning.
std::uint32_t FindBase64Start(FileInput& file);

// Encodes or decodes one file to a target in the same folder. Asks the user if the target exists. Returns
// false if the host has no file service, the file does not exist or the user declines; otherwise true, even
// if the conversion failed (C-425).
bool ConvertFileBase64(Velmora::SDK::IHostApp& host, const WString& path, bool encode);

// kCommandEncodeBase64 (`encode` true) and kCommandDecodeBase64 (false): converts the selected files one
// after the other.
void ConvertBase64Command(Velmora::SDK::IHostApp& host, bool encode);
