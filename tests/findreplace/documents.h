// Converts texts to documents of find and replace and back, in both character widths. Texts are written once,
// in narrow characters; block sizes are in characters, so that block boundaries are at the same places in
// both widths.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "data/data_reader.h"
#include "data/data_writer.h"
#include "data/thrown.h"
#include "findreplace/engine/lines.h"
#include "findreplace/engine/text_document.h"
#include "findreplace/engine/text_document_loader.h"
#include "linesorter/widths.h"

template <typename CharT>
using DocumentPointer = std::shared_ptr<QXFindAndReplace::TextDocumentT<CharT>>;

template <typename CharT>
constexpr std::uint32_t kUsualBlock = 32768 / sizeof(CharT);  // in characters

// The most common format of files of this width.
template <typename CharT>
constexpr WQDR::TextFormat kUsualFormat = sizeof(CharT) == 1 ? WQDR::TextFormat::Ansi
                                                             : WQDR::TextFormat::Utf16;

// Returns the text in narrow characters. A unit above 0xFF is shown as its number.
template <typename CharT>
std::string Narrow(std::basic_string_view<CharT> text) {
  std::string result;
  for (const CharT character : text) {
    const auto unit = static_cast<unsigned>(static_cast<std::make_unsigned_t<CharT>>(character));
    if (unit <= 0xFF) {
      result += static_cast<char>(unit);
    } else {
      char number[16];
      std::snprintf(number, sizeof(number), "{%04X}", unit);
      result += number;
    }
  }
  return result;
}

// Returns the bytes of a text in its width.
template <typename CharT>
std::string RawBytes(std::basic_string_view<CharT> text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(CharT)};
}
template <typename CharT>
std::string BytesOf(std::string_view text) {
  return RawBytes<CharT>(In<CharT>(text));
}

template <typename CharT>
DocumentPointer<CharT> ReadDocument(WQDR::DataReader& reader, std::uint32_t block = kUsualBlock<CharT>) {
  QXFindAndReplace::TextDocumentLoader loader;
  loader.blockSize = block * static_cast<std::uint32_t>(sizeof(CharT));
  return loader.Load<CharT>(reader, kUsualFormat<CharT>);
}

template <typename CharT>
DocumentPointer<CharT> MakeDocumentOfBytes(const std::string& bytes,
                                           std::uint32_t block = kUsualBlock<CharT>) {
  WQDR::MemoryDataReader reader(bytes.data(), bytes.size());
  return ReadDocument<CharT>(reader, block);
}

template <typename CharT>
DocumentPointer<CharT> MakeDocument(std::string_view text, std::uint32_t block = kUsualBlock<CharT>) {
  return MakeDocumentOfBytes<CharT>(BytesOf<CharT>(text), block);
}

template <typename CharT>
std::shared_ptr<QXFindAndReplace::Lines> MakeLines(std::string_view text) {
  const std::string bytes = BytesOf<CharT>(text);
  WQDR::MemoryDataReader reader(bytes.data(), bytes.size());
  return QXFindAndReplace::Lines::Load<CharT>(reader);
}

// Stores everything that is written.
class RecordingWriter final : public WQDR::DataWriter {
 public:
  void Write(const void* data, std::uint32_t size, std::uint32_t* written) override {
    bytes.append(static_cast<const char*>(data), size);
    if (written) *written = size;
  }
  std::string bytes;
};

// Returns the bytes that the document writes to its file.
template <typename CharT>
std::string WrittenBytes(const QXFindAndReplace::TextDocumentT<CharT>& document) {
  RecordingWriter writer;
  QXFindAndReplace::SetWriterEnding<CharT>(writer, document.GetEndingForOutput());
  const std::uint64_t written = document.WriteLines(writer);
  EXPECT_EQ(written, writer.bytes.size());
  return writer.bytes;
}

template <typename CharT>
std::string Written(const QXFindAndReplace::TextDocumentT<CharT>& document) {
  const std::string bytes = WrittenBytes(document);
  EXPECT_EQ(bytes.size() % sizeof(CharT), 0u);
  std::basic_string<CharT> text(bytes.size() / sizeof(CharT), CharT());
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(CharT));
  return Narrow<CharT>(text);
}

constexpr QXFindAndReplace::TextRange InLine(std::uint32_t line, std::uint32_t start, std::uint32_t end) {
  return {{line, start}, {line, end}};
}

// Start line, start column, end line, end column.
using RangeNumbers = std::array<std::uint32_t, 4>;
inline RangeNumbers NumbersOf(const QXFindAndReplace::TextRange& range) {
  return {range.start.line, range.start.column, range.end.line, range.end.column};
}

// Returns the text of the exception that a call throws.
template <typename Exception, typename Call>
std::string WhatOf(Call call) {
  try {
    call();
  } catch (const Exception& exception) {
    return exception.what();
  }
  return "nothing was thrown";
}

inline const Thrown kPartNotFound = {87, "Text part not found"};

template <typename Call>
Thrown DataError(Call call) {
  return ThrownBy<WQDR::WQDataReaderException>(call);
}
