// Comparisons of sort keys, one class for each way of comparing text.
//
// Compare returns true if and only if the left key sorts before the right one; false both ways round means
// equal. Lengths are in characters. An empty key sorts before every other one. Compare reports no errors: a
// function of the system that fails makes the left key sort first. An object lives on the stack of one sort
// and is used by its exact type, on one thread.
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
  DWORD compareFlags = 0;  // for the system's compare function

 protected:
  ~LineCompare_TextBase() = default;
};

// Bytes as unsigned numbers; ignoring case folds A to Z only. Compares as many bytes as the shorter key has,
// so a key and its own beginning are equal (C-105), and stops at a zero byte (C-106).
class LineCompare_OrdinalA final : public LineCompare_TextBase<char> {
 public:
  bool Compare(const char* lhs, std::uint32_t lhsLength, const char* rhs, std::uint32_t rhsLength) override;
};

// 16-bit units (CompareStringOrdinal, which puts a key after its own beginning). Without that function, as
// LineCompare_OrdinalA does it.
class LineCompare_OrdinalW final : public LineCompare_TextBase<WCHAR> {
 public:
  LineCompare_OrdinalW();
  bool Compare(const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs, std::uint32_t rhsLength) override;
  bool HasSystemFunction() const { return compareStringOrdinal != nullptr; }

 private:
  SystemLibrary library;
  decltype(&CompareStringOrdinal) compareStringOrdinal = nullptr;
};

// The user's language order over bytes (CompareStringA).
class LineCompare_LanguageAware_StringCompareA final : public LineCompare_TextBase<char> {
 public:
  bool Compare(const char* lhs, std::uint32_t lhsLength, const char* rhs, std::uint32_t rhsLength) override;

 private:
  LCID locale = LOCALE_USER_DEFAULT;
};

// The system's language order of two keys that are not empty: CompareStringEx, or CompareStringW where that
// is not there or not wanted.
class LanguageOrder {
 public:
  // Without `lookUp` CompareStringEx is not looked up.
  explicit LanguageOrder(bool lookUp);
  bool IsLess(DWORD flags, const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs,
              std::uint32_t rhsLength) const;

 private:
  SystemLibrary library;
  decltype(&CompareStringEx) compareStringEx = nullptr;
  WString localeName;
  const WCHAR* localeNamePointer = nullptr;  // null: the user's default locale
  LCID locale = LOCALE_USER_DEFAULT;
};

template <typename CharT>
class LineCompare_LanguageAware_StringCompareEx;

// The user's language order over 16-bit units.
template <>
class LineCompare_LanguageAware_StringCompareEx<WCHAR> final : public LineCompare_TextBase<WCHAR> {
 public:
  explicit LineCompare_LanguageAware_StringCompareEx(bool lookUp = true) : order(lookUp) {}
  bool Compare(const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs, std::uint32_t rhsLength) override;

 private:
  LanguageOrder order;
};

// For bytes it is only the base of the next class, and its own Compare always returns false (C-151).
template <>
class LineCompare_LanguageAware_StringCompareEx<char> : public LineCompare_TextBase<char> {
 public:
  bool Compare(const char*, std::uint32_t, const char*, std::uint32_t) override { return false; }

 protected:
  ~LineCompare_LanguageAware_StringCompareEx() = default;

  LanguageOrder order{true};
};

// The language order with digit runs by value over bytes: both keys are widened from the system's code page
// into buffers that grow to the longest key and stay.
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
