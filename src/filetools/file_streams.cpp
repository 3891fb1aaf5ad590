#include "filetools/file_streams.h"

#include <algorithm>
#include <cstring>

bool FileInput::Open(const WString& path) {
  file_.Reset(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  return file_.IsOpen();
}

bool FileInput::Seek(std::uint32_t offset) {
  return SetFilePointer(file_.Get(), static_cast<LONG>(offset), nullptr, FILE_BEGIN) == offset;
}

bool FileInput::Read(void* buffer, std::size_t size, std::size_t* read) {
  auto* const bytes = static_cast<unsigned char*>(buffer);
  *read = 0;
  while (*read < size) {
    DWORD got = 0;
    if (!ReadFile(file_.Get(), bytes + *read, static_cast<DWORD>(size - *read), &got, nullptr)) return false;
    if (got == 0) break;
    *read += std::min<std::size_t>(got, size - *read);
  }
  return true;
}

bool FileOutput::Create(const WString& path, bool replace) {
  file_.Reset(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                          replace ? CREATE_ALWAYS : CREATE_NEW, 0, nullptr));
  if (!file_.IsOpen()) return false;
  buffer_ = std::make_unique_for_overwrite<unsigned char[]>(kStreamBytes);
  return true;
}

bool FileOutput::Add(const void* bytes, std::size_t size) {
  const auto* from = static_cast<const unsigned char*>(bytes);
  while (size != 0) {
    const std::size_t count = std::min(size, kStreamBytes - filled_);
    std::memcpy(buffer_.get() + filled_, from, count);
    filled_ += count;
    from += count;
    size -= count;
    if (filled_ == kStreamBytes && !Flush()) return false;
  }
  return true;
}

bool FileOutput::Flush() {
  const auto size = static_cast<DWORD>(filled_);
  filled_ = 0;
  if (size == 0) return true;
  DWORD written = 0;
  return WriteFile(file_.Get(), buffer_.get(), size, &written, nullptr) && written == size;
}
