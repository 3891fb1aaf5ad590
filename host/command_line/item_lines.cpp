#include "host/command_line/item_lines.h"

#include <memory>

#include "host/output/error_text.h"
#include "host/output/failures.h"
#include "host/output/terminal.h"
#include "host/system/paths.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

constexpr std::size_t kBlockBytes = 65536;
constexpr std::size_t kLongestLine = std::size_t{1} << 20;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

ItemLines::Source FileSource(const std::string& name) {
  const std::optional<WString> path = FullPathOf(PathFromUtf8(name));
  if (!path) throw BadCall("--items: \"" + name + "\" is not a path");
  const auto file = std::make_shared<FileHandle>(CreateFileW(SystemPath(*path).c_str(), GENERIC_READ,
                                                             FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                             OPEN_EXISTING, 0, nullptr));
  if (!file->IsOpen()) throw BadCall("--items: cannot read " + name + ": " + ErrorText(GetLastError()));
  return [file](char* buffer, std::size_t size) -> std::optional<std::size_t> {
    DWORD done = 0;
    if (!ReadFile(file->Get(), buffer, static_cast<DWORD>(size), &done, nullptr)) return std::nullopt;
    return done;
  };
}

}  // namespace

bool ItemLines::ReadMore() {
  if (isAtEnd_) return false;
  pending_.erase(0, at_);
  at_ = 0;
  if (pending_.size() > kLongestLine) throw BadCall("--items: a line is too long for a path");
  const std::size_t before = pending_.size();
  pending_.resize(before + kBlockBytes);
  const std::optional<std::size_t> done = source_(pending_.data() + before, kBlockBytes);
  if (!done) throw BadCall("--items: cannot read to the end");
  pending_.resize(before + *done);
  isAtEnd_ = *done == 0;
  return !isAtEnd_;
}

std::optional<std::string> ItemLines::Next() {
  while (isAtBegin_ && pending_.size() < kByteOrderMark.size() && ReadMore()) {
  }
  if (isAtBegin_ && std::string_view(pending_).starts_with(kByteOrderMark)) at_ = kByteOrderMark.size();
  isAtBegin_ = false;
  for (;;) {
    const std::size_t end = pending_.find('\n', at_);
    if (end == std::string::npos && ReadMore()) continue;
    std::string_view line = std::string_view(pending_).substr(at_);
    if (end != std::string::npos) line = line.substr(0, end - at_);
    at_ += std::min(line.size() + 1, pending_.size() - at_);
    const bool isLast = end == std::string::npos;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!line.empty()) return std::string(line);
    if (isLast) return std::nullopt;
  }
}

ItemLines OpenItemLines(const std::string& source) {
  return ItemLines(source == "-" ? ReadStandardInputPart : FileSource(source));
}

}  // namespace QxHost
