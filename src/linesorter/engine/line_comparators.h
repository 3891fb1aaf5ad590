// Comparators of sort keys, one class for each way of comparing text.
//
// Compare returns true if the left key sorts before the right one; keys are equal if it returns false both
// ways round. Lengths are in characters. An empty key sorts before all others. Compare reports no errors: if
// a function of the system fails, the left key is less (C-108). A comparator is created on the stack for one
// sort and used through its exact type on one thread.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/system_library.h"
#include "platform/text.h"

namespace WQLineSorter {

template <typename CharT>
class LineCompare_TextBase {
 public:
  virtual bool Compare(const CharT* lhs, std::uint32_t lhsLength, const CharT* rhs,
                       std::uint32_t rhsLength) = 0;

  bool ignoreCase = false;
  DWORD compareFlags = 0;  // flags of the system's compare functions

 protected:
  ~LineCompare_TextBase() = default;
};

// Compares bytes as unsigned numbers; ignoring case folds only A to Z. Compares as many bytes as the shorter
// key has, so a key is equal to each of its prefixes (C-105), and stops at a zero byte (C-106).
class LineCompare_OrdinalA final : public LineCompare_TextBase<char> {
 public:
  bool Compare(const char* lhs, std::uint32_t lhsLength, const char* rhs, std::uint32_t rhsLength) override;
};

// Compares 16-bit units with CompareStringOrdinal, which sorts a key after its prefixes. If the system does
// not have that function, compares like LineCompare_OrdinalA.
class LineCompare_OrdinalW final : public LineCompare_TextBase<WCHAR> {
 public:
  LineCompare_OrdinalW();
  bool Compare(const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs, std::uint32_t rhsLength) override;
  bool HasSystemFunction() const { return compareStringOrdinal != nullptr; }

 private:
  SystemLibrary library;
  decltype(&CompareStringOrdinal) compareStringOrdinal = nullptr;
};

// Compares bytes in the order of the user's language (CompareStringA).
class LineCompare_LanguageAware_StringCompareA final : public LineCompare_TextBase<char> {
 public:
  bool Compare(const char* lhs, std::uint32_t lhsLength, const char* rhs, std::uint32_t rhsLength) override;

 private:
  LCID locale = LOCALE_USER_DEFAULT;
};

// Compares two keys that are not empty in the order of the user's language, with CompareStringEx or, if the
// system does not have it or `lookUp` is false, CompareStringW.
class LanguageOrder {
 public:
  // Looks up CompareStringEx only if `lookUp` is true.
  explicit LanguageOrder(bool lookUp);
  bool IsLess(DWORD flags, const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs,
              std::uint32_t rhsLength) const;

 private:
  SystemLibrary library;
  decltype(&CompareStringEx) compareStringEx = nullptr;
  WString localeName;
  const WCHAR* localeNamePointer = nullptr;  // null for the user's default locale
  LCID locale = LOCALE_USER_DEFAULT;
};

template <typename CharT>
class LineCompare_LanguageAware_StringCompareEx;

// Compares 16-bit units in the order of the user's language.
template <>
class LineCompare_LanguageAware_StringCompareEx<WCHAR> final : public LineCompare_TextBase<WCHAR> {
 public:
  explicit LineCompare_LanguageAware_StringCompareEx(bool lookUp = true) : order(lookUp) {}
  bool Compare(const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs, std::uint32_t rhsLength) override;

 private:
  LanguageOrder order;
};

// The specialisation for bytes is only a base class of the next class. Its own Compare always returns false
// (C-151).
template <>
class LineCompare_LanguageAware_StringCompareEx<char> : public LineCompare_TextBase<char> {
 public:
  bool Compare(const char*, std::uint32_t, const char*, std::uint32_t) override { return false; }

 protected:
  ~LineCompare_LanguageAware_StringCompareEx() = default;

  LanguageOrder order{true};
};

// Compares bytes in language order with runs of digits by their value. Converts both keys from the ANSI code
// page to buffers that grow to the longest key and are freed with the comparator.
class LineCompare_LanguageAware_WFallback final : public LineCompare_LanguageAware_StringCompareEx<char> {
 public:
  bool Compare(const char* lhs, std::uint32_t lhsLength, const char* rhs, std::uint32_t rhsLength) override;

 private:
  std::uint32_t capacity1 = 0;
  std::uint32_t capacity2 = 0;
  std::unique_ptr<WCHAR[]> wide1;
  std::unique_ptr<WCHAR[]> wide2;
};

}  // namespace WQLineSorter
