#include "findreplace/tool/host_callback.h"

#include <utility>

#include "data/code_pages.h"
#include "findreplace/engine/find_and_replace_options.h"

namespace QXFindAndReplace {

using namespace Velmora::SDK;

namespace {

constexpr u32 kLogCategory = 0;

// Returns the text of the given length, which may be kZeroTerminated. A null text is empty.
template <typename CharT>
std::basic_string_view<CharT> ViewOfLength(const CharT* text, std::uint32_t length) {
  if (!text) return {};
  return length == kZeroTerminated ? std::basic_string_view<CharT>(text)
                                   : std::basic_string_view<CharT>(text, length);
}

WString ErrorText(const WCHAR* message, std::uint32_t code) {
  WString text = W("[Find and Replace] Error\r\n==========================\r\n");
  text += message ? message : W("[Unknown]");
  text += W("\r\n( ErrorCode : ");
  text += FromUtf8(std::to_string(code));
  text += W(" )");
  return text;
}

}  // namespace

FindAndReplaceCallback::FindAndReplaceCallback(IHostApp& hostApp, std::uint32_t runFlags,
                                               ConfirmReplaceDialog show)
    : host(hostApp), flags(runFlags), show_(std::move(show)) {}

void FindAndReplaceCallback::BeginFile(const WCHAR* file) { path = ViewOf(file); }

void FindAndReplaceCallback::EndFile() {}

bool FindAndReplaceCallback::IsCancelled() { return cancelled; }

void FindAndReplaceCallback::ReportError(const WCHAR* message, std::uint32_t code) {
  const WString text = ErrorText(message, code);
  if ((flags & Silent) == 0) MessageBoxW(host.GetMainWindow(), text.c_str(), W("Error"), MB_ICONERROR);
  host.LogText(kLogCategory, kLogError, text.c_str());
}

void FindAndReplaceCallback::ReportError(const char* message, std::uint32_t code) {
  if (!message) return ReportError(static_cast<const WCHAR*>(nullptr), code);
  ReportError(WQDR::FromCodePage(CP_THREAD_ACP, message).c_str(), code);
}

ConfirmResult FindAndReplaceCallback::ConfirmReplace(const WCHAR* context, WQDR::TextFormat format,
                                                     const TextRange& range, const Highlight& highlight,
                                                     const WCHAR* replacement,
                                                     std::uint32_t replacementLength) {
  if (!IsInteractive()) return ConfirmResult::ReplaceAll;
  return Ask(WString(ViewOf(context)), format, range, highlight,
             WString(ViewOfLength(replacement, replacementLength)));
}

ConfirmResult FindAndReplaceCallback::ConfirmReplace(const char* context, WQDR::TextFormat format,
                                                     const TextRange& range, const Highlight& highlight,
                                                     const char* replacement,
                                                     std::uint32_t replacementLength) {
  if (!IsInteractive()) return ConfirmResult::ReplaceAll;
  return Ask(WQDR::FromCodePage(CP_THREAD_ACP, ViewOfLength(context, kZeroTerminated)), format, range,
             highlight, WQDR::FromCodePage(CP_THREAD_ACP, ViewOfLength(replacement, replacementLength)));
}

// A silent run replaces all matches without asking (C-232).
bool FindAndReplaceCallback::IsInteractive() const { return (flags & (ReplaceAll | Silent)) == 0; }

ConfirmResult FindAndReplaceCallback::Ask(WString context, WQDR::TextFormat format, const TextRange& range,
                                          const Highlight& highlight, WString replacement) {
  ConfirmReplaceForm form;
  form.highlight = highlight;
  form.range = range;
  form.format = format;
  form.path = path;
  form.context = std::move(context);
  form.replacement = std::move(replacement);
  show_(host, form);
  if (form.result == ConfirmResult::Cancel) cancelled = true;
  if (form.result == ConfirmResult::ReplaceAll) flags |= ReplaceAll;
  return form.result;
}

}  // namespace QXFindAndReplace
