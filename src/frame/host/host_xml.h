// An XML document of the host and its node handles. A node lives as long as its document.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

class IHostXmlDocument {
 public:
  virtual XmlNode CreateRoot(const WCHAR* name) = 0;
  virtual void Close(XmlNode root) = 0;                   // invalidates the nodes of a tree
  virtual XmlNode Load(const WCHAR* path, u32 flag) = 0;  // the root, or null
  // `encoding` may be null.
  virtual bool Save(XmlNode root, const WCHAR* path, u32 flag, const char* encoding) = 0;
  virtual void GetEncoding(XmlNode root, char* buffer, u32 size) = 0;  // as declared in the loaded file
  virtual XmlNode AddChild(XmlNode parent, const WCHAR* name, const WCHAR* text) = 0;
  virtual XmlNode AddChildWithTextAttribute(XmlNode parent, const WCHAR* name, const WCHAR* attribute,
                                            const WCHAR* text, u32 zero) = 0;
  virtual XmlNode AddChildWithIntAttribute(XmlNode parent, const WCHAR* name, const WCHAR* attribute,
                                           s32 value, u32 zero) = 0;
  virtual XmlNode FirstChild(XmlNode parent, const WCHAR* name, u32 zero, u32 alsoZero) = 0;
  virtual XmlNode NextSibling(XmlNode node, const WCHAR* name) = 0;
  virtual bool GetChildText(XmlNode parent, const WCHAR* name, WCHAR* buffer, u32 size) = 0;
  virtual bool GetAttributeText(WCHAR* buffer, u32 size, XmlNode node, const WCHAR* attribute) = 0;
  virtual s32 GetAttributeValue(XmlNode node, const WCHAR* attribute) = 0;
  virtual bool GetAttributeInt(s32* value, XmlNode node, const WCHAR* attribute) = 0;
  virtual void SetAttributeInt(XmlNode node, const WCHAR* attribute, s32 value, u32 zero) = 0;
  virtual void SetAttributeText(XmlNode node, const WCHAR* attribute, const WCHAR* text, u32 flag) = 0;
  virtual void Release() = 0;

 protected:
  ~IHostXmlDocument() = default;
};

}  // namespace Velmora::SDK
