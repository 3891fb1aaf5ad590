#include "findreplace/engine/replace_pass.h"

#include <string_view>

#include "findreplace/engine/document_errors.h"
#include "findreplace/engine/item_search.h"
#include "findreplace/engine/pattern_search.h"

namespace QXFindAndReplace {

namespace {

// Asks about and replaces each match of a search as it is found.
template <typename CharT>
class ReplacePass {
 public:
  ReplacePass(TextDocumentT<CharT>& document, std::basic_string_view<CharT> replace,
              IFindAndReplaceCallback* callback)
      : document_(document), replace_(replace), callback_(callback) {}

  template <typename Search>
  void Run(Search&& search) {
    TextPosition position = {};
    for (LineMatch match; search.Next(position, match); position = match.range.end) {
      // After an empty match the search would find the same match again (C-208).
      if (match.range.start.column == match.range.end.column) ThrowNoPart();
      if (IsWanted(match.range)) Replace(match.range);
    }
  }

 private:
  bool IsWanted(const TextRange& range) {
    if (!callback_ || document_.replaceAll) return true;
    Highlight highlight = {};
    const auto context = document_.GetContextText(range, highlight, LineEnding::CrLf);
    switch (callback_->ConfirmReplace(context.get(), document_.format, range, highlight, replace_.data(),
                                      static_cast<std::uint32_t>(replace_.size()))) {
      case ConfirmResult::ReplaceAll:
        document_.replaceAll = true;
        return true;
      case ConfirmResult::Replace:
      case ConfirmResult::ReplaceToo:
        return true;
      case ConfirmResult::Cancel:
        throw WQDR::WQDataReaderException(ERROR_CANCELLED, "Operation cancelled by user");
      default:
        return false;
    }
  }

  void Replace(const TextRange& range) {
    if (document_.ReplaceInLine(range.start.line, range.start.column, range.end.column, replace_.data(),
                                static_cast<std::uint32_t>(replace_.size()))) {
      ++document_.changeCount;
    }
  }

  TextDocumentT<CharT>& document_;
  std::basic_string_view<CharT> replace_;
  IFindAndReplaceCallback* callback_;
};

}  // namespace

template <typename CharT>
void FindAndReplaceInLines(TextDocumentT<CharT>& document, const CharT* find, std::uint32_t findLength,
                           const CharT* replace, std::uint32_t replaceLength, bool ignoreCase,
                           std::uint32_t matching, IFindAndReplaceCallback* callback) {
  ReplacePass<CharT> pass(document, {replace, replaceLength}, callback);
  switch (matching) {
    case kMatchPlain:
      return pass.Run(ItemSearch<CharT>(document, 0, find, findLength, ignoreCase));
    case kMatchWildcard:
      return pass.Run(PatternSearch<CharT>(document, find, ignoreCase));
    default:
      throw WQDR::WQDataReaderException(ERROR_INVALID_PARAMETER, "Unsupported line matching options");
  }
}

template void FindAndReplaceInLines(TextDocumentT<char>&, const char*, std::uint32_t, const char*,
                                    std::uint32_t, bool, std::uint32_t, IFindAndReplaceCallback*);
template void FindAndReplaceInLines(TextDocumentT<WCHAR>&, const WCHAR*, std::uint32_t, const WCHAR*,
                                    std::uint32_t, bool, std::uint32_t, IFindAndReplaceCallback*);

}  // namespace QXFindAndReplace
