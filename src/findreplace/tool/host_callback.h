// The callback of a run in the host: asks in a dialog, and reports errors in a box and in the log.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_callback.h"
#include "findreplace/tool/confirm_replace_dlg.h"
#include "frame/host/host_app.h"

namespace QXFindAndReplace {

class FindAndReplaceCallback final : public IFindAndReplaceCallback {
 public:
  // `flags` are the flags of the run (FindAndReplaceFlag). With ReplaceAll or Silent, does not ask and
  // replaces all matches; with Silent shows no error boxes either.
  FindAndReplaceCallback(Velmora::SDK::IHostApp& host, std::uint32_t flags,
                         ConfirmReplaceDialog show = ShowConfirmReplaceDlg);

  void BeginFile(const WCHAR* path) override;
  void EndFile() override;
  void ReportError(const WCHAR* message, std::uint32_t code) override;
  // The message must be in the thread's code page.
  void ReportError(const char* message, std::uint32_t code) override;
  ConfirmResult ConfirmReplace(const WCHAR* context, WQDR::TextFormat format, const TextRange& range,
                               const Highlight& highlight, const WCHAR* replacement,
                               std::uint32_t replacementLength) override;
  // Shows the bytes as text in the thread's code page, whatever the encoding of the file, since the offsets
  // count bytes (C-239).
  ConfirmResult ConfirmReplace(const char* context, WQDR::TextFormat format, const TextRange& range,
                               const Highlight& highlight, const char* replacement,
                               std::uint32_t replacementLength) override;
  bool IsCancelled() override;

  // Returns the flags of the run, including ReplaceAll after the user has chosen it.
  std::uint32_t Flags() const { return flags; }

 private:
  bool IsInteractive() const;
  ConfirmResult Ask(WString context, WQDR::TextFormat format, const TextRange& range,
                    const Highlight& highlight, WString replacement);

  Velmora::SDK::IHostApp& host;
  WString path;
  bool cancelled = false;
  std::uint32_t flags;
  ConfirmReplaceDialog show_;
};

}  // namespace QXFindAndReplace
