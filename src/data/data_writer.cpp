#include "data/data_writer.h"

#include <algorithm>
#include <cstring>

#include "data/path_error.h"

namespace WQDR {

namespace {

// `error` is a parameter so that the caller reads GetLastError before any other call.
[[noreturn]] void ThrowWriteFailure(DWORD error) {
  throw WQDataReaderException(error, "Failed to write data to file");
}

}  // namespace

std::uint32_t DataWriter::WriteLineEnding() {
  if (lineEndingLength == 0) return 0;
  std::uint32_t written = 0;
  Write(lineEnding.get(), static_cast<std::uint32_t>(lineEndingLength), &written);
  return written;
}

std::uint32_t DataWriter::WriteBlock(const void* data, std::uint32_t size) {
  if (size == 0) return 0;
  std::uint32_t written = 0;
  Write(data, size, &written);
  return written;
}

void FileDataWriter::Open(const WString& path, bool replace) {
  FileHandle opened(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                replace ? CREATE_ALWAYS : CREATE_NEW, 0, nullptr));
  const DWORD error = GetLastError();
  handle = std::move(opened);
  if (handle.IsOpen()) return;
  SetLastError(error);
  ThrowLastError("Unable to open file for writing : ", path);
}

void FileDataWriter::Write(const void* data, std::uint32_t size, std::uint32_t* written) {
  DWORD done = 0;
  if (!WriteFile(handle.Get(), data, size, &done, nullptr)) ThrowWriteFailure(GetLastError());
  if (done != size) ThrowWriteFailure(ERROR_DISK_FULL);
  if (written) *written = done;
}

template <typename CharT>
MemoryDataWriter<CharT>::MemoryDataWriter(std::size_t size)
    : buffer(std::make_unique<CharT[]>((size + sizeof(CharT) - 1) / sizeof(CharT))),
      bufferEnd(reinterpret_cast<unsigned char*>(buffer.get()) + size),
      writePosition(reinterpret_cast<unsigned char*>(buffer.get())) {}

template <typename CharT>
std::uint32_t MemoryDataWriter<CharT>::WriteLineEnding() {
  const std::uint32_t written = DataWriter::WriteLineEnding();
  ++lineCount;
  column = 0;
  return written;
}

template <typename CharT>
void MemoryDataWriter<CharT>::Write(const void* data, std::uint32_t size, std::uint32_t* written) {
  const auto room = static_cast<std::size_t>(bufferEnd - writePosition);
  const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(size, room));
  if (count != 0) std::memcpy(writePosition, data, count);
  writePosition += count;
  if (written) *written = count;
}

template class MemoryDataWriter<char>;
template class MemoryDataWriter<WCHAR>;

}  // namespace WQDR
