// An immutable text that many objects share: the folder of a hundred rows is in memory once.
#pragma once

#include <concepts>
#include <memory>
#include <utility>

#include "platform/text.h"

namespace Velmora::SDK {

// Copies share the text, even across threads.
class SharedText {
 public:
  SharedText() = default;
  SharedText(WString text)
      : text_(text.empty() ? nullptr : std::make_shared<const WString>(std::move(text))) {}
  SharedText(WStringView text) : SharedText(WString(text)) {}
  SharedText(const WCHAR* text) : SharedText(WString(text)) {}

  const WString& Text() const {
    static const WString kEmpty;
    return text_ ? *text_ : kEmpty;
  }
  operator const WString&() const { return Text(); }
  operator WStringView() const { return Text(); }

  template <std::convertible_to<WStringView> Other>
  friend bool operator==(const SharedText& left, const Other& right) {
    return WStringView(left) == static_cast<WStringView>(right);
  }

 private:
  std::shared_ptr<const WString> text_;  // null for the empty text
};

}  // namespace Velmora::SDK
