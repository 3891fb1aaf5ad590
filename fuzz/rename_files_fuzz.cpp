// Reads any bytes as a file of profiles or of search pairs, saves the result, and reads it again.
#include <string>

#include "fuzz_folder.h"
#include "fuzz_input.h"
#include "host/xml/xml_document.h"
#include "multirename/saved/find_replace_manager.h"
#include "multirename/saved/multi_rename_profiles.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;

namespace {

// A host with a configuration folder and real XML files in it.
class XmlHost final : public FakeHost {
 public:
  explicit XmlHost(WString folder) : folder_(std::move(folder)) {}
  bool GetConfigPath(WCHAR* buffer, u32 size) override {
    CopyTerminated(buffer, size, WStringView(folder_));
    return true;
  }
  IHostXmlDocument* CreateXmlDocument() override { return QxHost::XmlDocument::Lend(); }

 private:
  WString folder_;
};

void TryPairs(XmlHost& host) {
  FindReplaceManager manager(host);
  manager.Load();
  for (const auto& [number, items] : manager.Lists()) {
    Require(number > 0);
    for (const auto& [find, replace] : items) Require(find.size() < 1024 && replace.size() < 1024);
  }
  manager.Save();
  FindReplaceManager again(host);
  again.Load();
  Require(again.Lists().size() == manager.Lists().size());
}

void TryProfiles(XmlHost& host) {
  MultiRenameProfiles profiles(host);
  profiles.Load();
  for (const auto& profile : profiles.profiles) {
    Require(profile->name.size() < 1024 && profile->filenameRule.size() < 1024);
    Require((profile->flags & ~0x3700000u) == 0);
  }
  Require(profiles.Save());
  MultiRenameProfiles again(host);
  again.Load();
  Require(again.profiles.size() == profiles.profiles.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  XmlHost host(FromUtf8(folder.Path("") + "\\"));
  FuzzInput input(data, size);
  const bool isPairs = input.TakeByte() % 2 == 0;
  const std::span<const std::uint8_t> bytes = input.TakeRest();
  folder.Write(isPairs ? "FindReplace.xml" : "MultiRenameProfiles.xml",
               std::string(bytes.begin(), bytes.end()));
  if (isPairs)
    TryPairs(host);
  else
    TryProfiles(host);
  return 0;
}
