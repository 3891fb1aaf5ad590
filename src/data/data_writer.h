// Sinks of bytes for the writing of texts: a file or a block of memory. All that a writer knows of the text
// is the line ending.
#pragma once

#include <cstdint>
#include <memory>

#include "data/data_exception.h"
#include "platform/handles.h"
#include "platform/text.h"

namespace WQDR {

// The interface of writers.
class DataWriter {
 public:
  DataWriter() = default;
  DataWriter(const DataWriter&) = delete;
  DataWriter& operator=(const DataWriter&) = delete;
  virtual ~DataWriter() = default;

  // Never called; they keep the order of the virtual functions.
  virtual std::uint32_t Reserved1() { return 0; }
  virtual std::uint32_t Reserved2() { return 0; }
  // Writes the line ending, if there is one, and returns the number of bytes written.
  virtual std::uint32_t WriteLineEnding();
  // Writes `size` bytes. If `written` is not null, stores the number of bytes written.
  virtual void Write(const void* data, std::uint32_t size, std::uint32_t* written) = 0;
  // Writes a block and returns the number of bytes written. Does not call Write for an empty block.
  virtual std::uint32_t WriteBlock(const void* data, std::uint32_t size);

  // The line ending, CR, LF or CR LF, in the character width of the text, with a terminator; null for none.
  // Its length is in bytes and does not include the terminator.
  std::unique_ptr<unsigned char[]> lineEnding;
  std::uint64_t lineEndingLength = 0;
};

// Writes a file that others may read and write at the same time (CreateFileW, WriteFile).
class FileDataWriter final : public DataWriter {
 public:
  // Creates the file; with `replace` truncates an existing one. First closes a file that is open. Throws
  // WQDataReaderException with the error of the call and "Unable to open file for writing : " before the
  // path, which is omitted if it cannot be converted to the thread's code page.
  void Open(const WString& path, bool replace);
  // Calls WriteFile once. If that fails, throws WQDataReaderException with its error and "Failed to write
  // data to file". A write of fewer bytes is reported as a full disk (112).
  void Write(const void* data, std::uint32_t size, std::uint32_t* written) override;

 private:
  FileHandle handle;
};

// Writes to a block of memory of fixed size. Discards what does not fit, without an error (C-039). CharT is
// the type of the characters that are written. Never fails.
template <typename CharT>
class MemoryDataWriter final : public DataWriter {
 public:
  // Allocates a zero-filled block of `size` bytes.
  explicit MemoryDataWriter(std::size_t size);

  std::uint32_t WriteLineEnding() override;
  void Write(const void* data, std::uint32_t size, std::uint32_t* written) override;

  std::unique_ptr<CharT[]> buffer;
  unsigned char* bufferEnd;
  unsigned char* writePosition;
  std::uint32_t lineCount = 0;  // number of calls of WriteLineEnding, even without a line ending
  std::uint32_t column = 0;     // WriteLineEnding sets it to 0
};

}  // namespace WQDR
