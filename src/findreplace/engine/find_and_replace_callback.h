// The interface through which the engine asks for confirmation and reports errors while it processes a file.
// The engine itself has no dialogs.
#pragma once

#include <cstdint>

#include "data/text_format.h"
#include "findreplace/engine/text_document.h"
#include "platform/text.h"

namespace QXFindAndReplace {

// The answers to a question about a match. All other values act like Skip.
enum class ConfirmResult : std::int32_t {
  Replace = 0,
  ReplaceAll = 1,  // this match and all later ones without a question
  ReplaceToo = 2,  // acts like Replace
  Skip = 3,        // continue after this match
  Cancel = 5
};

// The length argument for a zero-terminated text.
constexpr std::uint32_t kZeroTerminated = 0xFFFFFFFF;

// Each file has its own object. All calls are made on the thread of the run.
class IFindAndReplaceCallback {
 public:
  virtual void BeginFile(const WCHAR* path) = 0;
  virtual void EndFile() = 0;
  // `code` is a Windows error number. `message` may be null.
  virtual void ReportError(const WCHAR* message, std::uint32_t code) = 0;
  virtual void ReportError(const char* message, std::uint32_t code) = 0;
  // Asks whether to replace a match. The context is zero-terminated; `highlight` contains the offsets of the
  // match in the context. `replacementLength` is in characters. 8-bit texts are in the encoding of the file.
  virtual ConfirmResult ConfirmReplace(const WCHAR* context, WQDR::TextFormat format, const TextRange& range,
                                       const Highlight& highlight, const WCHAR* replacement,
                                       std::uint32_t replacementLength) = 0;
  virtual ConfirmResult ConfirmReplace(const char* context, WQDR::TextFormat format, const TextRange& range,
                                       const Highlight& highlight, const char* replacement,
                                       std::uint32_t replacementLength) = 0;
  // Returns true after the user has chosen Cancel.
  virtual bool IsCancelled() = 0;

 protected:
  ~IFindAndReplaceCallback() = default;
};

}  // namespace QXFindAndReplace
