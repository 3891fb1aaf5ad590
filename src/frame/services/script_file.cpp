#include "frame/services/script_file.h"

namespace Velmora::SDK {

ScriptFile::ScriptFile(IHostApp& host, const WString& path) {
  service_.emplace(host, kServiceFileOperation, kServiceFileOperation);
  IHostFileItem* const item = *service_ ? (*service_)->GetFileItem(path.c_str(), 1) : nullptr;
  if (item) list_.emplace(host.CreateFileList());
  if (list_ && *list_) {
    (*list_)->AddItem(item);
    return;
  }
  list_.reset();
  service_.reset();
}

ScriptFile::~ScriptFile() {
  if (list_) (*service_)->ReleaseFileList(list_->Get());
}

}  // namespace Velmora::SDK
