// XML files that are loaded and saved as the commands do it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/xml/xml_document.h"
#include "support/scratch_folder.h"

class XmlFiles {
 public:
  // What Save leaves in the file; nothing if the file could not be loaded. With the encoding that the file
  // names, or the given one.
  std::optional<std::string> Rewritten(std::string_view bytes, Velmora::SDK::u32 flag,
                                       const char* encoding = nullptr) const {
    const WString path = scratch_.Write(W("a.xml"), bytes);
    const Document document;
    const Velmora::SDK::XmlNode root = document->Load(path.c_str(), 0);
    if (!root) return std::nullopt;
    char named[100] = {};
    document->GetEncoding(root, named, sizeof named);
    saved_ = document->Save(root, path.c_str(), flag, encoding ? encoding : named);
    return scratch_.Read(W("a.xml"));
  }

  // What the last Save answered.
  bool Saved() const { return saved_; }

  // A document of the host that is given back.
  class Document {
   public:
    Document() = default;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document() { document_->Release(); }
    Velmora::SDK::IHostXmlDocument* operator->() const { return document_; }

   private:
    Velmora::SDK::IHostXmlDocument* document_ = QxHost::XmlDocument::Lend();
  };

 private:
  ScratchFolder scratch_;
  mutable bool saved_ = false;
};
