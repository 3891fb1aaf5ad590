// Loads and saves XML files as the commands do.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/xml/xml_document.h"
#include "support/scratch_folder.h"

class XmlFiles {
 public:
  // Returns the file's contents after Save, or nothing if the file could not be loaded. Uses the encoding
  // that the file declares, or the given one.
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

  // Returns the result of the last Save.
  bool Saved() const { return saved_; }

  // A document of the host, released at the end of the scope.
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
