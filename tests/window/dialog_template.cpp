#include "window/dialog_template.h"

#include <cstring>
#include <vector>

#include "ui/module_instance.h"

namespace {

// In a DLGTEMPLATEEX: the size of the fields before the menu, and the kinds of the menu and class fields.
constexpr std::size_t kHeaderBytes = 26;
constexpr WORD kNone = 0;
constexpr WORD kByNumber = 0xFFFF;

std::vector<WORD> TemplateOf(int resource) {
  const HMODULE module = Ui::ModuleInstance();
  const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(resource), RT_DIALOG);
  if (!found) return {};
  const DWORD bytes = SizeofResource(module, found);
  std::vector<WORD> words((bytes + 1) / sizeof(WORD));
  std::memcpy(words.data(), LockResource(LoadResource(module, found)), bytes);
  return words;
}

// Returns the index after a zero-terminated text.
std::size_t AfterText(const std::vector<WORD>& words, std::size_t at) {
  while (words.at(at) != 0) ++at;
  return at + 1;
}

std::size_t AfterMenuOrClass(const std::vector<WORD>& words, std::size_t at) {
  if (words.at(at) == kNone) return at + 1;
  return words.at(at) == kByNumber ? at + 2 : AfterText(words, at);
}

// Returns the index of the dialog's font size, in points.
std::size_t FontSizeIndex(const std::vector<WORD>& words) {
  std::size_t at = kHeaderBytes / sizeof(WORD);
  at = AfterMenuOrClass(words, at);
  at = AfterMenuOrClass(words, at);
  return AfterText(words, at);  // skips the title
}

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

}  // namespace

DialogInScale::DialogInScale(int resource, int percent, HWND parent) {
  std::vector<WORD> words = TemplateOf(resource);
  if (words.empty()) return;
  WORD& points = words.at(FontSizeIndex(words));
  points = static_cast<WORD>(MulDiv(points, percent, 100));
  window_ = CreateDialogIndirectParamW(
      Ui::ModuleInstance(), reinterpret_cast<const DLGTEMPLATE*>(words.data()), parent, NoProcedure, 0);
}

DialogInScale::~DialogInScale() {
  if (window_) DestroyWindow(window_);
}
