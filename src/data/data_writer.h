// Sinks of bytes for texts that are written: a file or a block of memory. A writer knows one thing of text:
// the line ending of the document that writes itself.
#pragma once

#include <cstdint>
#include <memory>

#include "data/data_exception.h"
#include "platform/handles.h"
#include "platform/text.h"

namespace WQDR {

class DataWriter {
 public:
  DataWriter() = default;
  DataWriter(const DataWriter&) = delete;
  DataWriter& operator=(const DataWriter&) = delete;
  virtual ~DataWriter() = default;

  // Two places that are kept in the order of the operations; nothing calls them.
  virtual std::uint32_t Reserved1() { return 0; }
  virtual std::uint32_t Reserved2() { return 0; }
  // Writes the line ending and answers the bytes written; without an ending it writes nothing.
  virtual std::uint32_t WriteLineEnding();
  // Writes `size` bytes and stores the number written, where `written` is not null.
  virtual void Write(const void* data, std::uint32_t size, std::uint32_t* written) = 0;
  // Writes a block and returns the number of bytes written. A block of no bytes makes no call to Write.
  virtual std::uint32_t WriteBlock(const void* data, std::uint32_t size);

  // CR, LF or CR LF in the width of the text, with a zero character after it; null for no ending. Its length
  // in bytes counts no zero.
  std::unique_ptr<unsigned char[]> lineEnding;
  std::uint64_t lineEndingLength = 0;
};

// Writes a file that others may read and write at the same time (CreateFileW, WriteFile).
class FileDataWriter final : public DataWriter {
 public:
  // Makes the file, or with `replace` makes it anew. A file that was open is closed. Throws
  // WQDataReaderException with the error of the call and "Unable to open file for writing : " before the
  // path, which is left out where it has no form in the thread's code page.
  void Open(const WString& path, bool replace);
  // One WriteFile. Throws WQDataReaderException with its error and "Failed to write data to file". A write
  // that stores fewer bytes than asked for counts as a full disk (112).
  void Write(const void* data, std::uint32_t size, std::uint32_t* written) override;

 private:
  FileHandle handle;
};

// Writes into a block of memory that its maker has sized; what does not fit is cut off without an error
// (C-039). CharT is the type of the characters that its user hands it. Fails never.
template <typename CharT>
class MemoryDataWriter final : public DataWriter {
 public:
  // A zero-filled block of `size` bytes.
  explicit MemoryDataWriter(std::size_t size);

  std::uint32_t WriteLineEnding() override;
  void Write(const void* data, std::uint32_t size, std::uint32_t* written) override;

  std::unique_ptr<CharT[]> buffer;
  unsigned char* bufferEnd;
  unsigned char* writePosition;
  std::uint32_t lineCount = 0;  // calls of WriteLineEnding, those without an ending too
  std::uint32_t column = 0;     // set to 0 by each of them
};

}  // namespace WQDR
