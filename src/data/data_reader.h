// Sources of bytes for the loaders of text: a file or a block of memory. A reader knows nothing of text.
#pragma once

#include <cstdint>

#include "data/data_exception.h"
#include "platform/handles.h"
#include "platform/text.h"

namespace WQDR {

// A reader is a value of the function that loads the text, never deleted through this base.
class DataReader {
 public:
  // Delivers up to `toRead` bytes from the current position and stores their number in `bytesRead`. Fewer
  // than asked for, or none, is no error: the caller counts down `size` itself.
  virtual void Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) = 0;
  // Ends the use of the source. May be called again.
  virtual void Close() = 0;

  // Bytes that the reader can deliver in all, fixed at construction.
  std::uint64_t size = 0;

 protected:
  ~DataReader() = default;
};

// Reads a file that others may hold open for reading and for writing (CreateFileW, GetFileSizeEx, ReadFile).
class FileDataReader final : public DataReader {
 public:
  // Throws WQDataReaderException with the number of the failed call and "Unable to open file : " or "Failed
  // to get filesize : " before the path; the path is left out where it has no form in the thread's code page.
  explicit FileDataReader(const WString& path);
  // One ReadFile. Throws WQDataReaderException with its error and "Failed to read file".
  void Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) override;
  void Close() override { handle.Reset(); }

 private:
  FileHandle handle;
};

// Reads a block of memory; fails never.
class MemoryDataReader final : public DataReader {
 public:
  // With `ownsData` the block was made with new unsigned char[] and is freed with the reader.
  MemoryDataReader(const void* block, std::uint64_t bytes, bool ownsData = false)
      : owned(ownsData), data(static_cast<const unsigned char*>(block)) {
    size = bytes;
  }
  MemoryDataReader(const MemoryDataReader&) = delete;
  MemoryDataReader& operator=(const MemoryDataReader&) = delete;
  ~MemoryDataReader() {
    if (owned) delete[] data;
  }

  void Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) override;
  void Close() override {}

 private:
  bool owned;
  const unsigned char* data;
  std::uint32_t position = 0;
};

}  // namespace WQDR
