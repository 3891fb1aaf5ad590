// Files that are read and written from end to end through fixed buffers (CreateFileW, ReadFile, WriteFile).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/handles.h"
#include "platform/text.h"

// Bytes of the buffers of both.
constexpr std::size_t kStreamBytes = 65536;

// A source that others may read at the same time, and not write.
class FileInput {
 public:
  // False if the file cannot be opened; GetLastError tells why.
  bool Open(const WString& path);

  // Moves on to `offset` bytes from the file's beginning (SetFilePointer). False if that fails.
  bool Seek(std::uint32_t offset);

  // Reads up to `size` bytes, fewer only at the file's end or where a read fails, and stores their number.
  // False if a read has failed; what came before it is in the buffer.
  bool Read(void* buffer, std::size_t size, std::size_t* read);

 private:
  FileHandle file_;
};

// A target that is gathered in a buffer and written whenever that is full.
class FileOutput {
 public:
  // Makes the file: with `replace` anew (CREATE_ALWAYS), otherwise only if there is none (CREATE_NEW). Others
  // may read it meanwhile. False if that fails; GetLastError tells why.
  bool Create(const WString& path, bool replace);

  // Both answer false once a write has failed or stored less than it was given.
  bool Add(const void* bytes, std::size_t size);
  bool Flush();

 private:
  FileHandle file_;
  std::unique_ptr<unsigned char[]> buffer_;
  std::size_t filled_ = 0;
};
