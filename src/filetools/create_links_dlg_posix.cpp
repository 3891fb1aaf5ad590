// The Create Link dialog of the native build: passes its form to Platform::AskForm. What is disabled in the
// window is disabled here too.
#include "filetools/create_links_dlg.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "platform/posix/form_fields.h"

using namespace Velmora::SDK;

namespace {

constexpr Platform::ChoiceWord kKindWords[] = {
    {kHardLink, W("hard")},
    {kJunction, W("junction")},
    {kSymbolicLink, W("symbolic")},
    {kShortcut, W("shortcut")},
};

Platform::FormField While(const bool& isEnabled, Platform::FormField field) {
  field.set = [&isEnabled, set = field.set](const WString& text) { return isEnabled && set(text); };
  field.isEnabled = [&isEnabled] { return isEnabled; };
  return field;
}

Platform::FormField KindField(CreateLinksForm& form) {
  Platform::FormField field = Platform::ChoiceField("linkKind", form.linkKind, kKindWords);
  field.set = [&form, set = field.set](const WString& text) {
    if (!set(text)) return false;
    UpdateForKind(form);
    return true;
  };
  return field;
}

// Returns a read-only field for a text that depends on the kind; empty if `text` is 0.
Platform::FormField ShownTextField(const char* name, IHostApp& host, const TextId& text) {
  return Platform::ShownField(name,
                              [&host, &text] { return text == 0 ? WString() : LanguageText(host, text); });
}

}  // namespace

INT_PTR ShowCreateLinksDlg(IHostApp& host, CreateLinksForm& form) {
  Platform::FormRequest request;
  request.dialog = "CreateLinksDlg";
  request.title = LanguageText(host, kTextLinkCaption);
  request.fields = {
      KindField(form),
      While(form.linkEnabled, Platform::TextField("linkName", form.linkText)),
      While(form.targetEnabled, Platform::TextField("targetName", form.targetText)),
      ShownTextField("description", host, form.description),
      ShownTextField("status", host, form.status),
  };
  request.isOkEnabled = [&form] { return form.okEnabled; };
  if (Platform::AskForm(request) != IDOK) return IDCANCEL;
  FinishForm(form);
  return IDOK;
}
