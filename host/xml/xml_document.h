// The XML documents that the host lends to the module.
//
// What Save's flag means here: 1 formats the file, 0 leaves the white space between its elements as it was
// loaded. The flags of all other operations mean nothing. Names that XML does not allow, and operations
// without the node that they need, give null or false and change nothing.
#pragma once

#include <memory>
#include <vector>

#include "frame/host/host_xml.h"
#include "host/system/owned_by_module.h"
#include "host/xml/xml_tree.h"

namespace QxHost {

using Velmora::SDK::s32;
using Velmora::SDK::u32;
using Velmora::SDK::XmlNode;

class XmlDocument final : public OwnedByModule<XmlDocument, Velmora::SDK::IHostXmlDocument> {
 public:
  // UTF-8, with a declaration that says so.
  XmlNode CreateRoot(const WCHAR* name) override;
  void Close(XmlNode root) override;
  XmlNode Load(const WCHAR* path, u32 flag) override;

  // Writes a new file, which then takes the place of the old one: whatever fails, the old one is there as it
  // was. A read-only file stays. Without an encoding, or with an empty one, it is that of the loaded file.
  bool Save(XmlNode root, const WCHAR* path, u32 flag, const char* encoding) override;

  // Empty if the file does not name one, or its name does not fit.
  void GetEncoding(XmlNode root, char* buffer, u32 size) override;

  XmlNode AddChild(XmlNode parent, const WCHAR* name, const WCHAR* text) override;
  XmlNode AddChildWithTextAttribute(XmlNode parent, const WCHAR* name, const WCHAR* attribute,
                                    const WCHAR* text, u32 zero) override;
  XmlNode AddChildWithIntAttribute(XmlNode parent, const WCHAR* name, const WCHAR* attribute, s32 value,
                                   u32 zero) override;

  // A null or empty name means an element of any name.
  XmlNode FirstChild(XmlNode parent, const WCHAR* name, u32 zero, u32 alsoZero) override;
  XmlNode NextSibling(XmlNode node, const WCHAR* name) override;

  // The text of the first child of that name, without that of the elements in it. A text that is longer than
  // the buffer is cut. False, and the buffer as it was, if there is no such child or attribute.
  bool GetChildText(XmlNode parent, const WCHAR* name, WCHAR* buffer, u32 size) override;
  bool GetAttributeText(WCHAR* buffer, u32 size, XmlNode node, const WCHAR* attribute) override;

  // Decimal digits, with a sign or without. 0, and false, for anything else and for what does not fit.
  s32 GetAttributeValue(XmlNode node, const WCHAR* attribute) override;
  bool GetAttributeInt(s32* value, XmlNode node, const WCHAR* attribute) override;

  void SetAttributeInt(XmlNode node, const WCHAR* attribute, s32 value, u32 zero) override;
  void SetAttributeText(XmlNode node, const WCHAR* attribute, const WCHAR* text, u32 flag) override;

 private:
  XmlTree* TreeOf(XmlNode node) const;

  std::vector<std::unique_ptr<XmlTree>> trees_;
};

}  // namespace QxHost
