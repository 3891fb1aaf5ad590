#include "host/services/module_boxes.h"
#include "platform/posix/user_interface.h"

namespace QxHost {
namespace {

constexpr INT_PTR kStarted = 33;  // values above 32 mean success

class PlatformBoxes final : public ModuleBoxes, public Platform::UserInterface {
 public:
  PlatformBoxes(Questions& questions, Reporter& reporter)
      : questions_(questions), reporter_(reporter), before_(Platform::InstallUserInterface(this)) {}
  ~PlatformBoxes() override { Platform::InstallUserInterface(before_); }
  PlatformBoxes(const PlatformBoxes&) = delete;
  PlatformBoxes& operator=(const PlatformBoxes&) = delete;

  int MessageBox(const WCHAR* text, const WCHAR* caption, UINT style) override {
    return questions_.AskBox(WString(ViewOf(caption)), WString(ViewOf(text)), style);
  }

  INT_PTR Dialog(Platform::FormRequest& form) override {
    std::vector<DialogField> fields;
    for (const Platform::FormField& field : form.fields) {
      fields.push_back({field.name, field.get, field.set, field.words, field.isEnabled, field.takes});
    }
    const bool isOk = questions_.AskDialog(form.dialog, form.title, form.text, fields, form.isOkEnabled);
    return isOk ? IDOK : IDCANCEL;
  }

  INT_PTR ShellExecute(const WCHAR* verb, const WCHAR* file, const WCHAR* arguments, int) override {
    reporter_.Shell({WString(ViewOf(verb)), WString(ViewOf(file)), WString(ViewOf(arguments))});
    return kStarted;
  }

 private:
  Questions& questions_;
  Reporter& reporter_;
  Platform::UserInterface* before_;
};

}  // namespace

const bool kDialogsHaveForms = true;

std::unique_ptr<ModuleBoxes> InstallModuleBoxes(Questions& questions, Reporter& reporter) {
  return std::make_unique<PlatformBoxes>(questions, reporter);
}

}  // namespace QxHost
