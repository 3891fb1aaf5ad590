// Applies a mode to a document, for the tests of modes.
#pragma once

#include <string>
#include <string_view>

#include "findreplace/documents.h"
#include "findreplace/engine/modes.h"
#include "findreplace/scripted_callback.h"

template <typename CharT>
class AppliedModes : public testing::Test {
 protected:
  using Callback = QXFindAndReplace::IFindAndReplaceCallback;

  static std::uint32_t ApplyTo(QXFindAndReplace::TextDocumentT<CharT>& document,
                               QXFindAndReplace::FindAndReplaceOptions& options, std::string_view find,
                               std::string_view replace) {
    const auto wideFind = In<CharT>(find);
    const auto wideReplace = In<CharT>(replace);
    return QXFindAndReplace::ApplyToDocument<CharT>(document, options, wideFind.c_str(), wideReplace.c_str());
  }

  // Returns the changed text and stores the number of changes in `changes`.
  std::string Apply(std::uint32_t flags, std::string_view text, std::string_view find,
                    std::string_view replace, Callback* callback = nullptr) {
    const DocumentPointer<CharT> document = MakeDocument<CharT>(text);
    QXFindAndReplace::FindAndReplaceOptions options;
    options.flags = flags;
    options.callback = callback;
    changes = ApplyTo(*document, options, find, replace);
    EXPECT_EQ(changes, document->changeCount);
    return Written(*document);
  }
  Thrown ErrorOf(std::uint32_t flags, std::string_view text, std::string_view find, std::string_view replace,
                 Callback* callback = nullptr) {
    return DataError([&] { Apply(flags, text, find, replace, callback); });
  }

  std::uint32_t changes = 0;
};
