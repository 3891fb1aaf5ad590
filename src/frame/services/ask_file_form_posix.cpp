#include <utility>

#include "frame/services/ask_file_form.h"
#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
#include "platform/posix/user_interface.h"

namespace Velmora::SDK {

INT_PTR AskFileForm(IHostApp& host, const char* dialog, const FileFormTexts& texts, std::uint32_t fileCount,
                    std::vector<Platform::FormField> fields) {
  Platform::FormRequest request;
  request.dialog = dialog;
  request.title = LanguageText(host, texts.caption);
  request.text = LanguageText(host, texts.heading);
  request.text += W('\n');
  request.text += FormatCount(LanguageText(host, texts.count), fileCount);
  request.fields = std::move(fields);
  return Platform::AskForm(request);
}

}  // namespace Velmora::SDK
