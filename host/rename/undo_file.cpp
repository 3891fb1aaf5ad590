#include "host/rename/undo_file.h"

#include <algorithm>
#include <functional>
#include <span>
#include <vector>

#include "host/system/paths.h"
#include "host/system/system_places.h"
#include "host/system/whole_file.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

using Velmora::SDK::kMaxUndoFileBytes;
using Velmora::SDK::MultiRenameUndo;

DWORD UndoErrorOr(DWORD fallback) {
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : fallback;
}

// Passes the bytes of a file to `use`, in pieces, until it returns false. Returns 0 or the error number.
DWORD ReadPieces(const WString& path, const std::function<bool(std::span<const std::uint8_t>)>& use) {
  const FileHandle file(CreateFileW(SystemPath(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) return UndoErrorOr(ERROR_FILE_NOT_FOUND);
  std::vector<std::uint8_t> piece(std::size_t{1} << 16);
  for (;;) {
    DWORD done = 0;
    if (!ReadFile(file.Get(), piece.data(), static_cast<DWORD>(piece.size()), &done, nullptr))
      return UndoErrorOr(ERROR_IO_DEVICE);
    if (done == 0 || !use(std::span(piece).first(done))) return ERROR_SUCCESS;
  }
}

WString TextOfBytes(std::span<const std::uint8_t> bytes) {
  WString text(bytes.size() / 2, WCHAR());
  for (std::size_t at = 0; at < text.size(); ++at)
    text[at] = static_cast<WCHAR>(bytes[at * 2] | bytes[at * 2 + 1] << 8);
  return text;
}

// Returns how much of the text the reader uses: it stops at a null character and at a CR without its LF.
std::size_t ReadableSize(const WString& text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isLoneReturn = text[at] == W('\r') && text.compare(at + 1, 1, W("\n")) != 0;
    if (text[at] == WCHAR() || isLoneReturn) return at;
  }
  return text.size();
}

WStringView WithoutMark(WStringView text) {
  constexpr WCHAR kByteOrderMark = 0xFEFF;
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(1);
  return text;
}

// Reads an undo file in pieces: the entries of its beginning, and the notes after them.
class UndoFileReader {
 public:
  // Returns false if no more is needed.
  bool Take(std::span<const std::uint8_t> bytes) {
    size_ += bytes.size();
    const std::size_t room = kMaxUndoFileBytes - beginning_.size();
    const auto first = bytes.first(std::min(room, bytes.size()));
    beginning_.insert(beginning_.end(), first.begin(), first.end());
    if (first.size() == bytes.size()) return true;
    if (!isBeginningRead_) ReadBeginning();
    for (const std::uint8_t byte : bytes.subspan(first.size())) rest_.push_back(byte);
    const WString text = TextOfBytes(rest_);
    rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(text.size() * 2));
    notes_.Read(text);
    if (IsTextKept()) file_.text += text;
    return readsPastBeginning_ && size_ < kMaxFileBytes;
  }

  UndoFile Finish() {
    if (!isBeginningRead_) ReadBeginning();
    const bool isLonger = size_ > beginning_.size();
    file_.isLong = isLonger && (!readsPastBeginning_ || notes_.HasOtherLines() || notes_.IsCut());
    file_.isCut = isLonger ? file_.isLong && wholeSize_ * 2 != beginning_.size() : isBeginningCut_;
    const bool isReadToItsEnd = isLonger ? IsTextKept() && !notes_.EndsInLine() && rest_.empty()
                                         : wholeSize_ * 2 == beginning_.size();
    file_.isWhole = isReadToItsEnd && !file_.isLong && !notes_.HasOtherLines() && !notes_.HasComments();
    file_.session = Velmora::SDK::ReadUndoText({beginning_.data(), wholeSize_ * 2});
    if (file_.session) file_.notes.files = notes_.FilesOf(file_.session->entries.size(), file_.isLong);
    if (!file_.session && isBeginningCut_ && Velmora::SDK::ReadUndoText(beginning_))
      file_.session = std::make_unique<MultiRenameUndo>();
    if (!file_.isWhole) file_.text.clear();
    return std::move(file_);
  }

 private:
  // The limit leaves room for the notes of as many entries as are read.
  bool IsTextKept() const { return !notes_.HasOtherLines() && size_ <= 8 * kMaxUndoFileBytes; }

  void ReadBeginning() {
    isBeginningRead_ = true;
    file_.text = TextOfBytes(beginning_);
    const WString& text = file_.text;
    file_.notes.isPlan = HasPlanMark(WithoutMark(text));
    const std::size_t size = ReadableSize(text);
    const std::size_t lineEnd = text.rfind(W('\n'), size == 0 ? 0 : size - 1);
    wholeSize_ = size == 0 || lineEnd == WString::npos ? 0 : lineEnd + 1;
    isBeginningCut_ = wholeSize_ != size;
    // The limit may separate a CR from its LF.
    readsPastBeginning_ = size == text.size() || (size + 1 == text.size() && text[size] == W('\r'));
    const std::size_t notesAt = FindNotedFiles(WStringView(text).substr(0, wholeSize_));
    notes_.Read(WStringView(text).substr(notesAt != WStringView::npos ? notesAt : wholeSize_));
  }

  UndoFile file_;
  std::vector<std::uint8_t> beginning_;
  std::vector<std::uint8_t> rest_;  // an odd byte after the beginning
  NotesReader notes_;
  std::size_t size_ = 0;
  std::size_t wholeSize_ = 0;  // characters of the beginning up to its last line end
  bool isBeginningRead_ = false;
  bool isBeginningCut_ = false;
  bool readsPastBeginning_ = false;  // nothing in the beginning stops the reader
};

// A subfolder of the undo files' folder, in which files are written: every file beside the undo files counts
// as one of them, folders do not.
class WritingFolder {
 public:
  explicit WritingFolder(const WString& path)
      : folder_(path.substr(0, path.rfind(W('\\')) + 1) + W("writing")),
        name_(path.substr(path.rfind(W('\\')))) {
    if (CreateDirectoryW(SystemPath(folder_).c_str(), nullptr)) return;
    // A run that was cut off has left its contents.
    WIN32_FIND_DATAW found;
    const FindHandle search(FindFirstFileExW(SystemPath(folder_ + W("\\*")).c_str(), FindExInfoBasic, &found,
                                             FindExSearchNameMatch, nullptr, 0));
    if (!search.IsOpen()) return;
    do {
      if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        DeleteFileW(SystemPath(PathInFolder(folder_, found.cFileName)).c_str());
    } while (FindNextFileW(search.Get(), &found));
  }
  WritingFolder(const WritingFolder&) = delete;
  WritingFolder& operator=(const WritingFolder&) = delete;
  ~WritingFolder() { RemoveDirectoryW(SystemPath(folder_).c_str()); }

  WString Path() const { return folder_ + name_; }

 private:
  const WString folder_;
  const WString name_;
};

using WriteText = std::function<void(WStringView)>;

DWORD WriteInPlaceOf(const WString& path, const std::function<void(const WriteText&)>& writeAll) {
  const WritingFolder writing(path);
  const WString temporary = writing.Path();
  DWORD error = ERROR_SUCCESS;
  {
    const FileHandle file(CreateFileW(SystemPath(temporary).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) return UndoErrorOr(ERROR_ACCESS_DENIED);
    writeAll([&](WStringView text) {
      if (error != ERROR_SUCCESS) return;
      error =
          WriteBytes(file.Get(), {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)});
    });
  }
  // A program that reads the old file for a moment may prevent its replacement.
  constexpr int kMaxTries = 25;
  constexpr DWORD kPause = 20;  // milliseconds
  if (error == ERROR_SUCCESS) {
    error = TakePlaceOf(temporary, path);
    for (int tries = 1; tries < kMaxTries && error == ERROR_SHARING_VIOLATION; ++tries) {
      Sleep(kPause);
      error = TakePlaceOf(temporary, path);
    }
  }
  if (error != ERROR_SUCCESS) DeleteFileW(SystemPath(temporary).c_str());
  return error;
}

// Returns the text with its HaveRestored line changed, or added if it lacks one.
WString WithRestored(WStringView text, bool haveRestored) {
  constexpr WStringView kInfo = W("[INFO]");
  constexpr WStringView kKey = W("HaveRestored");
  const WStringView line = haveRestored ? WStringView(W("HaveRestored : 1")) : W("HaveRestored : 0");
  const std::size_t info = text.find(kInfo);
  if (info == WStringView::npos) return WString(text);
  const std::size_t files = std::min(text.find(W("[FILES]"), info), text.size());
  WString result;
  const std::size_t key = text.substr(0, files).find(kKey, info);
  const std::size_t from = key != WStringView::npos ? key : std::min(text.find(W('\n'), info), files) + 1;
  const std::size_t to =
      key != WStringView::npos ? std::min(text.find_first_of(W("\r\n"), key), files) : from;
  result.append(text.substr(0, from)).append(line);
  if (key == WStringView::npos) result += W("\r\n");
  return result.append(text.substr(to));
}

}  // namespace

UndoFile ReadUndoFile(const WString& path) {
  UndoFileReader reader;
  const DWORD error = ReadPieces(path, [&reader](auto bytes) { return reader.Take(bytes); });
  UndoFile file;
  if (error == ERROR_SUCCESS) file = reader.Finish();
  file.error = error;
  return file;
}

bool IsPlan(const WString& path) {
  std::vector<std::uint8_t> first;
  ReadPieces(path, [&first](auto bytes) {
    first.assign(bytes.begin(), bytes.end());
    return false;
  });
  return HasPlanMark(WithoutMark(TextOfBytes(first)));
}

DWORD WriteUndoFile(const WString& path, const MultiRenameUndo& session, const UndoNotes& notes) {
  return WriteInPlaceOf(path, [&](const WriteText& write) {
    if (notes.isPlan) write(PlanMark());
    WriteUndoText(session, write);
    WriteNotedFiles(notes.files, write);
  });
}

DWORD RewriteUndoFile(const WString& path, const UndoFile& file) {
  return WriteInPlaceOf(path, [&](const WriteText& write) {
    const std::size_t notesAt = FindNotedFiles(file.text);
    write(WithRestored(WStringView(file.text).substr(0, notesAt), file.session->haveRestored));
    WriteNotedFiles(file.notes.files, write);
  });
}

}  // namespace QxHost
