// A fake host for MultiRename: a configuration folder, XML files in memory, properties, and renames whose
// results the test sets by new name.
#pragma once

#include <functional>
#include <map>
#include <set>

#include "multirename/engine/multi_rename_engine.h"
#include "multirename/memory_xml.h"
#include "support/fake_host.h"

// A rename that the module has queued.
struct HostRename {
  WString from;  // the name of the item, or the full path
  WString to;
  void* data;
};

class ScriptedRenames final : public Velmora::SDK::IHostFileOperation {
 public:
  std::map<WString, Velmora::SDK::u32> codes;  // results by new name; 0 for all others
  std::vector<HostRename> itemRenames;         // of the batches that were run, in order
  std::vector<HostRename> pathRenames;
  std::vector<std::string> calls;
  std::function<void()> atRun;  // called in each run
  bool givesBatches = true;

  int FileExists(const WCHAR*) override { return 0; }
  Velmora::SDK::IHostFileItem* GetFileItem(const WCHAR*, Velmora::SDK::u32) override { return nullptr; }
  void ReleaseFileList(Velmora::SDK::IHostFileList*) override {}
  Velmora::SDK::IHostRenameBatch* CreateRenameBatch() override {
    calls.push_back("create");
    return givesBatches ? new Batch(*this) : nullptr;
  }
  void ReleaseRenameBatch(Velmora::SDK::IHostRenameBatch* batch) override { batch->Release(); }
  void RunBatch(Velmora::SDK::IHostRenameBatch* batch,
                Velmora::SDK::IRenameResultCallback* callback) override {
    calls.push_back("run");
    Run(*static_cast<Batch*>(batch), callback, itemRenames);
  }
  void RunPathBatch(Velmora::SDK::IHostRenameBatch* batch,
                    Velmora::SDK::IRenameResultCallback* callback) override {
    calls.push_back("run paths");
    Run(*static_cast<Batch*>(batch), callback, pathRenames);
  }

 private:
  struct Result final : Velmora::SDK::IHostRenameResult {
    void* data = nullptr;
    Velmora::SDK::u32 code = 0;
    void* UserData() override { return data; }
    Velmora::SDK::u32 ResultCode() override { return code; }
  };

  class Batch final : public Velmora::SDK::IHostRenameBatch {
   public:
    explicit Batch(ScriptedRenames& owner) : owner_(owner) {}
    void AddByPath(const WCHAR* path, const WCHAR* name, void* data) override {
      renames.push_back({path, name, data});
    }
    void AddByItem(Velmora::SDK::IHostFileItem* item, const WCHAR* name, void* data) override {
      renames.push_back({static_cast<FakeFileItem*>(item)->Name(), name, data});
    }
    Velmora::SDK::u32 Count() override { return static_cast<Velmora::SDK::u32>(results.size()); }
    Velmora::SDK::IHostRenameResult* At(Velmora::SDK::u32 index) override { return &results[index]; }
    void Release() override {
      owner_.calls.push_back("release");
      delete this;
    }

    std::vector<HostRename> renames;
    std::deque<Result> results;

   private:
    ScriptedRenames& owner_;
  };

  void Run(Batch& batch, Velmora::SDK::IRenameResultCallback* callback, std::vector<HostRename>& renames) {
    if (atRun) atRun();
    for (const HostRename& rename : batch.renames) {
      const auto found = codes.find(rename.to);
      Result& result = batch.results.emplace_back();
      result.data = rename.data;
      result.code = found == codes.end() ? 0 : found->second;
      renames.push_back(rename);
      if (callback) callback->OnRenameResult(rename.data, result.code);
    }
    // A result that belongs to no row.
    batch.results.emplace_back().code = 5;
    if (callback) callback->OnRenameResult(nullptr, 5);
  }
};

// Values by property name, with a date for some.
class FakeProperties final : public Velmora::SDK::IHostPropertyManager {
 public:
  struct Value {
    WString text;
    Velmora::SDK::u64 date = 0;
    Velmora::SDK::u32 count = 1;
  };
  std::map<WString, Value> values;
  bool throws = false;
  std::vector<WString> paths;  // the files whose values were requested

  Velmora::SDK::u32 GetValue(WCHAR* buffer, Velmora::SDK::u32 size, const WCHAR* name, void* record,
                             const WCHAR* path) override {
    EXPECT_EQ(size, 256u);
    paths.push_back(path);
    if (throws) throw std::runtime_error("the host fails");
    const auto found = values.find(name);
    if (found == values.end()) return 0;
    CopyTerminated(buffer, size, WStringView(found->second.text));
    static_cast<Velmora::SDK::FilePropertyValue*>(record)->date = found->second.date;
    return found->second.count;
  }
  void ListProperties(Velmora::SDK::IHostPropertyList*, Velmora::SDK::u32) override {}
};

class RenameHost : public FakeHost {
 public:
  WString configFolder;  // empty: the host returns none
  MemoryXmlFiles files;
  ScriptedRenames renames;
  int servicesOut = 0;

  bool GetConfigPath(WCHAR* buffer, Velmora::SDK::u32 size) override {
    if (configFolder.empty()) return false;
    CopyTerminated(buffer, size, WStringView(configFolder));
    return true;
  }
  Velmora::SDK::IHostXmlDocument* CreateXmlDocument() override {
    return files.givesDocuments ? new MemoryXmlDocument(files) : nullptr;
  }
  void* GetService(Velmora::SDK::u32 number, std::uintptr_t) override {
    if (number != Velmora::SDK::kServiceFileOperation) return nullptr;
    ++servicesOut;
    return static_cast<Velmora::SDK::IHostFileOperation*>(&renames);
  }
  void ReleaseService(void* service, Velmora::SDK::u32) override {
    EXPECT_EQ(service, static_cast<Velmora::SDK::IHostFileOperation*>(&renames));
    renames.calls.push_back("release service");
    --servicesOut;
  }
};

// Returns the initial rules of a window, with all rows of the set in its order.
inline Velmora::SDK::RuleInput DefaultRules(const Velmora::SDK::SharedItems& items) {
  Velmora::SDK::RuleInput rules;
  rules.itemsOwner = items;
  if (items) {
    for (Velmora::SDK::MultiRenameItem& item : *items) rules.items.push_back(&item);
  }
  rules.filenameTemplate = W("[N]");
  rules.extensionTemplate = W("[E]");
  rules.startAt = W("1");
  rules.stepBy = W("1");
  rules.digits = W("2");
  rules.searchFlags = 0x1000000;
  return rules;
}

inline Velmora::SDK::SharedReplaceItems PairsOf(Velmora::SDK::SearchAndReplaceItems items) {
  return std::make_shared<const Velmora::SDK::SearchAndReplaceItems>(std::move(items));
}

// Makes rows for files with these names; a name that ends in a slash is a folder.
inline Velmora::SDK::SharedItems RowsOf(FakeHost& host, const std::vector<WString>& names) {
  host.selection.clear();
  for (WString name : names) {
    const bool isFolder = name.ends_with(W('/'));
    if (isFolder) name.pop_back();
    host.selection.push_back(isFolder ? host.AddFolder(name) : host.AddFile(name));
  }
  return Velmora::SDK::ReadSelection(host);
}

// Returns the new names that the rules give these files, computed without a thread.
inline std::vector<WString> NewNames(Velmora::SDK::RuleInput rules, const std::vector<WString>& names) {
  RenameHost host;
  Velmora::SDK::MultiRenameEngine engine(&host);
  const Velmora::SDK::SharedItems rows = RowsOf(host, names);
  rules.itemsOwner = rows;
  rules.items.clear();
  for (Velmora::SDK::MultiRenameItem& item : *rows) rules.items.push_back(&item);
  EXPECT_TRUE(CompileRules(engine, std::move(rules)));
  std::vector<WString> newNames;
  for (Velmora::SDK::MultiRenameItem* item : engine.items) {
    ComputeName(engine, *item);
    newNames.push_back(item->newName);
  }
  return newNames;
}

inline WString NewName(const WString& filenameTemplate, const WString& name) {
  Velmora::SDK::RuleInput rules = DefaultRules(nullptr);
  rules.filenameTemplate = filenameTemplate;
  return NewNames(std::move(rules), {name}).front();
}

// A host whose GetConfigPath may fail although it fills the buffer, or return an empty folder.
struct DoubtfulHost final : FakeHost {
  bool result = false;
  WString text;
  bool GetConfigPath(WCHAR* buffer, Velmora::SDK::u32 size) override {
    CopyTerminated(buffer, size, WStringView(text));
    return result;
  }
};
