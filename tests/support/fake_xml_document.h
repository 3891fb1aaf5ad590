// The fake host's XML documents. A file is only an encoding.
#pragma once

#include <map>
#include <string>

#include "frame/host/host_xml.h"
#include "support/host_recorder.h"

struct FakeXmlFile {
  std::string encoding;
  bool canBeSaved = true;
};
using FakeXmlFiles = std::map<WString, FakeXmlFile>;  // by full path

// Can be loaded and saved; its nodes cannot be read.
class FakeXmlDocument final : public Velmora::SDK::IHostXmlDocument {
 public:
  FakeXmlDocument(HostRecorder& recorder, std::string name, const FakeXmlFiles& files)
      : recorder_(recorder), name_(std::move(name)), files_(files) {}

  Velmora::SDK::XmlNode CreateRoot(const WCHAR* name) override;
  void Close(Velmora::SDK::XmlNode root) override;
  Velmora::SDK::XmlNode Load(const WCHAR* path, Velmora::SDK::u32 flag) override;
  bool Save(Velmora::SDK::XmlNode root, const WCHAR* path, Velmora::SDK::u32 flag,
            const char* encoding) override;
  // Requires that the buffer is all zeros.
  void GetEncoding(Velmora::SDK::XmlNode root, char* buffer, Velmora::SDK::u32 size) override;
  Velmora::SDK::XmlNode AddChild(Velmora::SDK::XmlNode, const WCHAR*, const WCHAR*) override;
  Velmora::SDK::XmlNode AddChildWithTextAttribute(Velmora::SDK::XmlNode, const WCHAR*, const WCHAR*,
                                                  const WCHAR*, Velmora::SDK::u32) override;
  Velmora::SDK::XmlNode AddChildWithIntAttribute(Velmora::SDK::XmlNode, const WCHAR*, const WCHAR*,
                                                 Velmora::SDK::s32, Velmora::SDK::u32) override;
  Velmora::SDK::XmlNode FirstChild(Velmora::SDK::XmlNode, const WCHAR*, Velmora::SDK::u32,
                                   Velmora::SDK::u32) override;
  Velmora::SDK::XmlNode NextSibling(Velmora::SDK::XmlNode, const WCHAR*) override;
  bool GetChildText(Velmora::SDK::XmlNode, const WCHAR*, WCHAR*, Velmora::SDK::u32) override;
  bool GetAttributeText(WCHAR*, Velmora::SDK::u32, Velmora::SDK::XmlNode, const WCHAR*) override;
  Velmora::SDK::s32 GetAttributeValue(Velmora::SDK::XmlNode, const WCHAR*) override;
  bool GetAttributeInt(Velmora::SDK::s32*, Velmora::SDK::XmlNode, const WCHAR*) override;
  void SetAttributeInt(Velmora::SDK::XmlNode, const WCHAR*, Velmora::SDK::s32, Velmora::SDK::u32) override;
  void SetAttributeText(Velmora::SDK::XmlNode, const WCHAR*, const WCHAR*, Velmora::SDK::u32) override;
  void Release() override;

 private:
  Velmora::SDK::XmlNode Root() const;
  void Check(Velmora::SDK::XmlNode root, const char* operation);
  void Unexpected(const char* operation);

  HostRecorder& recorder_;
  std::string name_;
  const FakeXmlFiles& files_;
  const FakeXmlFile* loaded_ = nullptr;
  bool released_ = false;
};
