// Reads any bytes as an XML file and writes the document: reading it again must have the same result.
#include <string>

#include "fuzz_input.h"
#include "host/xml/xml_parser.h"
#include "host/xml/xml_writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace QxHost;
  const std::string bytes(data, data + size);
  const auto tree = ParseXml(bytes);
  if (!tree) return 0;
  for (const XmlLayout layout : {XmlLayout::kAsLoaded, XmlLayout::kFormatted}) {
    const auto once = WriteXml(*tree, layout, "");
    Require(once.has_value());
    const auto again = ParseXml(*once);
    Require(again != nullptr);
    Require(WriteXml(*again, layout, "") == once);
  }
  for (const char* const encoding : {"UTF-16", "ISO-8859-1", "windows-1252", "US-ASCII"}) {
    const auto written = WriteXml(*tree, XmlLayout::kAsLoaded, encoding);
    Require(!written || ParseXml(*written) != nullptr);
  }
  return 0;
}
