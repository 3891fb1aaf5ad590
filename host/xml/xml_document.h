// The XML documents that the host creates for the module.
//
// The flag of Save: 1 formats the file, 0 keeps the white space between its elements as loaded. The flags of
// all other operations are ignored. Operations with a name that XML does not allow, or without the node that
// they need, return null or false and change nothing.
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
  // Creates a document in UTF-8, with a declaration that says so.
  XmlNode CreateRoot(const WCHAR* name) override;
  void Close(XmlNode root) override;
  XmlNode Load(const WCHAR* path, u32 flag) override;

  // Writes a new file and replaces the old one by it; after any failure the old file is unchanged. Does not
  // replace a read-only file. If `encoding` is null or empty, uses that of the loaded file.
  bool Save(XmlNode root, const WCHAR* path, u32 flag, const char* encoding) override;

  // Stores the empty text if the file does not declare an encoding, or its name does not fit.
  void GetEncoding(XmlNode root, char* buffer, u32 size) override;

  XmlNode AddChild(XmlNode parent, const WCHAR* name, const WCHAR* text) override;
  XmlNode AddChildWithTextAttribute(XmlNode parent, const WCHAR* name, const WCHAR* attribute,
                                    const WCHAR* text, u32 zero) override;
  XmlNode AddChildWithIntAttribute(XmlNode parent, const WCHAR* name, const WCHAR* attribute, s32 value,
                                   u32 zero) override;

  // A null or empty name matches any element.
  XmlNode FirstChild(XmlNode parent, const WCHAR* name, u32 zero, u32 alsoZero) override;
  XmlNode NextSibling(XmlNode node, const WCHAR* name) override;

  // Store the text of the first child of that name, without that of the elements in it, or of an attribute,
  // truncated to the size of the buffer. Return false and leave the buffer unchanged if there is no such
  // child or attribute.
  bool GetChildText(XmlNode parent, const WCHAR* name, WCHAR* buffer, u32 size) override;
  bool GetAttributeText(WCHAR* buffer, u32 size, XmlNode node, const WCHAR* attribute) override;

  // Parse decimal digits with an optional sign. Return 0 and false for any other text and for a number that
  // does not fit.
  s32 GetAttributeValue(XmlNode node, const WCHAR* attribute) override;
  bool GetAttributeInt(s32* value, XmlNode node, const WCHAR* attribute) override;

  void SetAttributeInt(XmlNode node, const WCHAR* attribute, s32 value, u32 zero) override;
  void SetAttributeText(XmlNode node, const WCHAR* attribute, const WCHAR* text, u32 flag) override;

 private:
  XmlTree* TreeOf(XmlNode node) const;

  std::vector<std::unique_ptr<XmlTree>> trees_;
};

}  // namespace QxHost
