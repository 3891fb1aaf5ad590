// Sources of bytes for the text loaders: a file or a block of memory. A reader does not interpret the bytes.
#pragma once

#include <cstdint>

#include "data/data_exception.h"
#include "platform/handles.h"
#include "platform/text.h"

namespace WQDR {

// The interface of readers. A reader is a local object of the function that loads the text; it is never
// deleted through this class.
class DataReader {
 public:
  // Reads up to `toRead` bytes from the current position and stores their number in `bytesRead`. To read
  // fewer bytes, or none, is not an error: the caller counts the bytes left of `size`.
  virtual void Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) = 0;
  // Closes the source. May be called more than once.
  virtual void Close() = 0;

  // The total number of bytes of the source, set by the constructor.
  std::uint64_t size = 0;

 protected:
  ~DataReader() = default;
};

// Reads a file that others may have open for reading and writing (CreateFileW, GetFileSizeEx, ReadFile).
class FileDataReader final : public DataReader {
 public:
  // Throws WQDataReaderException with the error of the failed call and "Unable to open file : " or "Failed to
  // get filesize : " before the path, which is omitted if it cannot be converted to the thread's code page.
  explicit FileDataReader(const WString& path);
  // Calls ReadFile once. If that fails, throws WQDataReaderException with its error and "Failed to read
  // file".
  void Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) override;
  void Close() override { handle.Reset(); }

 private:
  FileHandle handle;
};

// Reads a block of memory. Never fails.
class MemoryDataReader final : public DataReader {
 public:
  // If `ownsData`, the block was allocated with new unsigned char[], and the reader deletes it. Otherwise it
  // must outlive the reader.
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
