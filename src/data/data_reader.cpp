#include "data/data_reader.h"

#include <algorithm>
#include <cstring>

#include "data/path_error.h"

namespace WQDR {

FileDataReader::FileDataReader(const WString& path) {
  FileHandle opened(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, 0, nullptr));
  if (!opened.IsOpen()) ThrowLastError("Unable to open file : ", path);
  LARGE_INTEGER bytes;
  if (!GetFileSizeEx(opened.Get(), &bytes)) ThrowLastError("Failed to get filesize : ", path);
  size = static_cast<std::uint64_t>(bytes.QuadPart);
  handle = std::move(opened);
}

void FileDataReader::Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) {
  DWORD done = 0;
  if (!ReadFile(handle.Get(), buffer, toRead, &done, nullptr)) {
    throw WQDataReaderException(GetLastError(), "Failed to read file");
  }
  *bytesRead = done;
}

void MemoryDataReader::Read(void* buffer, std::uint32_t toRead, std::uint32_t* bytesRead) {
  const std::uint64_t left = size - position;
  const auto count = static_cast<std::uint32_t>(std::min<std::uint64_t>(toRead, left));
  if (count != 0) std::memcpy(buffer, data + position, count);
  position += count;
  *bytesRead = count;
}

}  // namespace WQDR
