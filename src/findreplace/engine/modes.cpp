#include "findreplace/engine/modes.h"

#include <string>
#include <string_view>
#include <type_traits>

#include "data/data_reader.h"
#include "findreplace/engine/multiline_match.h"
#include "findreplace/engine/replace_pass.h"

namespace QXFindAndReplace {

namespace {

[[noreturn]] void ThrowBadTexts(const char* text) {
  throw WQDR::WQDataReaderException(ERROR_INVALID_PARAMETER, text);
}

// The spelling of the texts is intended (C-212).
constexpr const char* kTooFewItems = "To few find items. Atleast one must be set";
constexpr const char* kItemsDoNotMatch = "Find and Replace item do not match";
constexpr const char* kTooShort = "Find match are too short. Atleast one character need";

template <typename CharT>
std::shared_ptr<Lines> Split(const CharT* text) {
  WQDR::MemoryDataReader reader(text, std::basic_string_view<CharT>(text).size() * sizeof(CharT));
  return Lines::Load<CharT>(reader);
}

// The members of the options that store the lines of both texts in one encoding.
struct SplitTexts {
  std::shared_ptr<Lines>& find;
  std::shared_ptr<Lines>& replace;
};

template <typename CharT>
SplitTexts CacheOf(FindAndReplaceOptions& options, WQDR::TextFormat format) {
  if constexpr (std::is_same_v<CharT, WCHAR>) return {options.findLinesWide, options.replaceLinesWide};
  if (format == WQDR::TextFormat::Utf8) return {options.findLinesUtf8, options.replaceLinesUtf8};
  return {options.findLinesAnsi, options.replaceLinesAnsi};
}

// Applies one mode to a document.
template <typename CharT>
class ModeRun {
 public:
  ModeRun(TextDocumentT<CharT>& document, FindAndReplaceOptions& options, const CharT* find,
          const CharT* replace)
      : document_(document),
        options_(options),
        find_(find),
        replace_(replace),
        ignoreCase_((options.flags & IgnoreCase) != 0) {}

  // Applies the first mode that is set, in this order (C-213).
  void Run() {
    const std::uint32_t flags = options_.flags;
    if ((flags & ModeMultiline) != 0) return RunMultiline();
    if ((flags & ModeMany) != 0) return RunMany();
    if ((flags & ModeManySame) != 0) return RunManySame();
    if ((flags & ModeOne) != 0) return RunOne();
  }

 private:
  using Text = std::basic_string<CharT>;

  const SplitTexts& SplitOnce() {
    if (!split_.find) split_.find = Split(find_);
    if (!split_.replace) split_.replace = Split(replace_);
    return split_;
  }

  const std::vector<LineItem>& FindItems() { return SplitOnce().find->items; }
  const std::vector<LineItem>& ReplaceItems() { return SplitOnce().replace->items; }

  static Text Copied(const LineItem& item) { return Text(TextOf<CharT>(item), LengthOf<CharT>(item)); }

  // Returns the first line of the replace text, or the whole text if it has no lines.
  Text FirstReplace() { return ReplaceItems().empty() ? Text(replace_) : Copied(ReplaceItems().front()); }

  void RunPass(const CharT* find, std::uint32_t findLength, const CharT* replace,
               std::uint32_t replaceLength) {
    const LineMatching matching = (options_.flags & Wildcard) != 0 ? kMatchWildcard : kMatchPlain;
    FindAndReplaceInLines(document_, find, findLength, replace, replaceLength, ignoreCase_, matching,
                          options_.callback);
  }

  void RunPass(const LineItem& find, const CharT* replace, std::uint32_t replaceLength) {
    RunPass(TextOf<CharT>(find), LengthOf<CharT>(find), replace, replaceLength);
  }

  void RunOne() {
    const bool hasFind = !FindItems().empty();
    // An empty find text with a replace text has no effect and is not an error (C-211).
    if (!hasFind && !ReplaceItems().empty()) return;
    const Text find = hasFind ? Copied(FindItems().front()) : Text(find_);
    if (find.empty()) ThrowBadTexts(kTooShort);
    const Text replace = FirstReplace();
    RunPass(find.c_str(), static_cast<std::uint32_t>(find.size()), replace.c_str(),
            static_cast<std::uint32_t>(replace.size()));
  }

  // All passes search the text of the file, so an item may match text that an earlier item has replaced; the
  // pass then fails (C-201).
  void RunMany() {
    const std::vector<LineItem>& finds = FindItems();
    const std::vector<LineItem>& replaces = ReplaceItems();
    if (finds.empty()) ThrowBadTexts(kTooFewItems);
    if (replaces.size() != finds.size()) ThrowBadTexts(kItemsDoNotMatch);
    for (std::size_t index = 0; index < finds.size(); ++index) {
      RunPass(finds[index], TextOf<CharT>(replaces[index]), LengthOf<CharT>(replaces[index]));
    }
  }

  void RunManySame() {
    const std::vector<LineItem>& finds = FindItems();
    const Text replace = FirstReplace();
    if (finds.empty()) ThrowBadTexts(kTooFewItems);
    for (const LineItem& find : finds) {
      RunPass(find, replace.c_str(), static_cast<std::uint32_t>(replace.size()));
    }
  }

  // Ignores the wildcard option (C-228).
  void RunMultiline() {
    const std::shared_ptr<Lines> find = Split(find_);
    const std::shared_ptr<Lines> replace = Split(replace_);
    if (find->items.empty()) ThrowBadTexts(kTooFewItems);
    LineMatch match;
    for (TextPosition position = {};; position = match.range.end) {
      FindMultilineMatch(document_, match, *find, position, ignoreCase_);
      if (!match.found) return;
      if (!options_.callback) {
        document_.ReplaceRange(match.range, *replace);
      } else if (!ConfirmAndReplaceRange(document_, *options_.callback, match.range, *replace)) {
        return;
      }
    }
  }

  TextDocumentT<CharT>& document_;
  FindAndReplaceOptions& options_;
  const CharT* find_;
  const CharT* replace_;
  bool ignoreCase_;
  SplitTexts split_ = CacheOf<CharT>(options_, document_.format);
};

}  // namespace

template <typename CharT>
std::uint32_t ApplyToDocument(TextDocumentT<CharT>& document, FindAndReplaceOptions& options,
                              const CharT* find, const CharT* replace) {
  ModeRun<CharT>(document, options, find, replace).Run();
  return document.changeCount;
}

template std::uint32_t ApplyToDocument(TextDocumentT<char>&, FindAndReplaceOptions&, const char*,
                                       const char*);
template std::uint32_t ApplyToDocument(TextDocumentT<WCHAR>&, FindAndReplaceOptions&, const WCHAR*,
                                       const WCHAR*);

}  // namespace QXFindAndReplace
