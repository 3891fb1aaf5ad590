// The Replace X with Y dialog of the native build: passes its form to Platform::AskForm.
#include "filetools/replace_dlg.h"
#include "frame/services/message_texts.h"
#include "platform/posix/user_interface.h"

namespace {

using Velmora::SDK::kTextReplaceTitle;
using Velmora::SDK::kTextReplaceTop;

struct PartText {
  int part;
  WStringView text;
};

// The values of the field.
constexpr PartText kParts[] = {
    {ReplaceForm::kBaseName, W("1")},
    {ReplaceForm::kExtension, W("2")},
    {ReplaceForm::kWholeName, W("3")},
    {ReplaceForm::kNoPart, W("-1")},
};

Platform::FormField TextField(const char* name, WString& field) {
  return {name, [&field] { return field; },
          [&field](const WString& text) {
            field = text;
            return true;
          }};
}

Platform::FormField PartField(const char* name, int& field) {
  const auto get = [&field] {
    for (const PartText& row : kParts) {
      if (row.part == field) return WString(row.text);
    }
    return WString();
  };
  const auto set = [&field](const WString& text) {
    for (const PartText& row : kParts) {
      if (row.text != text) continue;
      field = row.part;
      return true;
    }
    return false;
  };
  std::vector<WString> words;
  for (const PartText& row : kParts) words.emplace_back(row.text);
  return {name, get, set, std::move(words)};
}

}  // namespace

INT_PTR ShowReplaceDlg(Velmora::SDK::IHostApp& host, ReplaceForm& form) {
  // Both texts are stored in the form however the dialog ends, the part only after OK.
  int part = form.part;
  Platform::FormRequest request;
  request.dialog = "CReplaceDlg";
  request.title = ViewOf(host.GetLanguageString(kTextReplaceTitle));
  request.text = ViewOf(host.GetLanguageString(kTextReplaceTop));
  request.fields = {TextField("find", form.find), TextField("replace", form.replace),
                    PartField("part", part)};
  const INT_PTR result = Platform::AskForm(request);
  if (result == IDOK) form.part = part;
  return result;
}
