// Sequential reading and writing of files through fixed buffers (CreateFileW, ReadFile, WriteFile).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/handles.h"
#include "platform/text.h"

// The size of the buffers in bytes.
constexpr std::size_t kStreamBytes = 65536;

// Reads a file. Others may read the file at the same time but not write it.
class FileInput {
 public:
  // Opens the file. Returns false and sets the last error if that fails.
  bool Open(const WString& path);

  // Continues at `offset` bytes from the beginning of the file (SetFilePointer). Returns false if that fails.
  bool Seek(std::uint32_t offset);

  // Reads `size` bytes, fewer only at the end of the file or after a failure, and stores their number in
  // `*read`. Returns false if a read failed; the bytes read before are in the buffer.
  bool Read(void* buffer, std::size_t size, std::size_t* read);

 private:
  FileHandle file_;
};

// Writes a file through a buffer, which is written to the file when it is full.
class FileOutput {
 public:
  // Creates the file; with `replace` truncates an existing one (CREATE_ALWAYS), otherwise fails if it exists
  // (CREATE_NEW). Others may read the file meanwhile. Returns false and sets the last error if that fails.
  bool Create(const WString& path, bool replace);

  // Add appends bytes; Flush writes the buffer to the file. Both return false after a write has failed or
  // stored fewer bytes than requested.
  bool Add(const void* bytes, std::size_t size);
  bool Flush();

 private:
  FileHandle file_;
  std::unique_ptr<unsigned char[]> buffer_;
  std::size_t filled_ = 0;
};
