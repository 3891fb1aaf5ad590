#include "support/fake_xml_document.h"

#include <algorithm>

using namespace Velmora::SDK;

XmlNode FakeXmlDocument::Root() const { return reinterpret_cast<XmlNode>(const_cast<FakeXmlFile*>(loaded_)); }

void FakeXmlDocument::Check(XmlNode root, const char* operation) {
  if (released_) recorder_.Problem(name_ + "." + operation + " after its release");
  if (root != Root()) recorder_.Problem(name_ + "." + operation + " of a strange node");
}

void FakeXmlDocument::Unexpected(const char* operation) {
  recorder_.Problem(name_ + "." + operation + " is not what this document is for");
}

XmlNode FakeXmlDocument::Load(const WCHAR* path, u32 flag) {
  Check(Root(), "Load");
  recorder_.Record(name_ + ".Load(" + Quoted(path) + ", " + std::to_string(flag) + ")");
  const auto found = files_.find(WString(ViewOf(path)));
  loaded_ = found == files_.end() ? nullptr : &found->second;
  return Root();
}

void FakeXmlDocument::GetEncoding(XmlNode root, char* buffer, u32 size) {
  Check(root, "GetEncoding");
  recorder_.Record(name_ + ".GetEncoding(" + std::to_string(size) + ")");
  if (std::any_of(buffer, buffer + size, [](char byte) { return byte != 0; })) {
    recorder_.Problem(name_ + ".GetEncoding was given a buffer that is not zeroed");
  }
  CopyTerminated(buffer, size, std::string_view(loaded_->encoding));
}

bool FakeXmlDocument::Save(XmlNode root, const WCHAR* path, u32 flag, const char* encoding) {
  Check(root, "Save");
  recorder_.Record(name_ + ".Save(" + Quoted(path) + ", " + std::to_string(flag) + ", " +
                   (encoding ? encoding : "null") + ")");
  return loaded_ && loaded_->canBeSaved;
}

void FakeXmlDocument::Release() {
  recorder_.Record(name_ + ".Release()");
  recorder_.Released(name_);
  released_ = true;
}

void FakeXmlDocument::Close(XmlNode root) {
  Check(root, "Close");
  recorder_.Record(name_ + ".Close()");
  loaded_ = nullptr;
}

XmlNode FakeXmlDocument::CreateRoot(const WCHAR*) {
  Unexpected("CreateRoot");
  return nullptr;
}

XmlNode FakeXmlDocument::AddChild(XmlNode, const WCHAR*, const WCHAR*) {
  Unexpected("AddChild");
  return nullptr;
}

XmlNode FakeXmlDocument::AddChildWithTextAttribute(XmlNode, const WCHAR*, const WCHAR*, const WCHAR*, u32) {
  Unexpected("AddChildWithTextAttribute");
  return nullptr;
}

XmlNode FakeXmlDocument::AddChildWithIntAttribute(XmlNode, const WCHAR*, const WCHAR*, s32, u32) {
  Unexpected("AddChildWithIntAttribute");
  return nullptr;
}

XmlNode FakeXmlDocument::FirstChild(XmlNode, const WCHAR*, u32, u32) {
  Unexpected("FirstChild");
  return nullptr;
}

XmlNode FakeXmlDocument::NextSibling(XmlNode, const WCHAR*) {
  Unexpected("NextSibling");
  return nullptr;
}

bool FakeXmlDocument::GetChildText(XmlNode, const WCHAR*, WCHAR*, u32) {
  Unexpected("GetChildText");
  return false;
}

bool FakeXmlDocument::GetAttributeText(WCHAR*, u32, XmlNode, const WCHAR*) {
  Unexpected("GetAttributeText");
  return false;
}

s32 FakeXmlDocument::GetAttributeValue(XmlNode, const WCHAR*) {
  Unexpected("GetAttributeValue");
  return 0;
}

bool FakeXmlDocument::GetAttributeInt(s32*, XmlNode, const WCHAR*) {
  Unexpected("GetAttributeInt");
  return false;
}

void FakeXmlDocument::SetAttributeInt(XmlNode, const WCHAR*, s32, u32) { Unexpected("SetAttributeInt"); }

void FakeXmlDocument::SetAttributeText(XmlNode, const WCHAR*, const WCHAR*, u32) {
  Unexpected("SetAttributeText");
}
