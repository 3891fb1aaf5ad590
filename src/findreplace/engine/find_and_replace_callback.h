// What the engine asks and tells while it works on a file. The engine knows nothing of dialogs.
#pragma once

#include <cstdint>

#include "data/text_format.h"
#include "findreplace/engine/text_document.h"
#include "platform/text.h"

namespace QXFindAndReplace {

// Values other than these act like Skip.
enum class ConfirmResult : std::int32_t {
  Replace = 0,
  ReplaceAll = 1,  // this match, and all others without a question
  ReplaceToo = 2,  // like Replace
  Skip = 3,        // leave this match; go on after it
  Cancel = 5
};

// Stands for the length of a zero-terminated text.
constexpr std::uint32_t kZeroTerminated = 0xFFFFFFFF;

// One object for each file; all calls come on the thread of the run.
class IFindAndReplaceCallback {
 public:
  virtual void BeginFile(const WCHAR* path) = 0;
  virtual void EndFile() = 0;
  // `code` is a Windows error number. A null message is allowed.
  virtual void ReportError(const WCHAR* message, std::uint32_t code) = 0;
  virtual void ReportError(const char* message, std::uint32_t code) = 0;
  // Asks whether to replace a match. The context is zero-terminated, and the match is in it at the two
  // offsets; `replacementLength` is in characters. 8-bit texts are in the file's encoding.
  virtual ConfirmResult ConfirmReplace(const WCHAR* context, WQDR::TextFormat format, const TextRange& range,
                                       const Highlight& highlight, const WCHAR* replacement,
                                       std::uint32_t replacementLength) = 0;
  virtual ConfirmResult ConfirmReplace(const char* context, WQDR::TextFormat format, const TextRange& range,
                                       const Highlight& highlight, const char* replacement,
                                       std::uint32_t replacementLength) = 0;
  // True once the user has answered Cancel.
  virtual bool IsCancelled() = 0;

 protected:
  ~IFindAndReplaceCallback() = default;
};

}  // namespace QXFindAndReplace
