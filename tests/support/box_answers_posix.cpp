#include "platform/posix/user_interface.h"
#include "support/box_answers.h"

class BoxAnswers::Responder final : public Platform::UserInterface {
 public:
  explicit Responder(BoxAnswers& boxes) : boxes_(boxes), before_(Platform::InstallUserInterface(this)) {}
  Responder(const Responder&) = delete;
  Responder& operator=(const Responder&) = delete;
  ~Responder() override { Platform::InstallUserInterface(before_); }

  int MessageBox(const WCHAR* text, const WCHAR* caption, UINT style) override {
    return boxes_.AnswerBox({WString(ViewOf(caption)), WString(ViewOf(text)), ButtonsOf(style),
                             (style & 0xF0) != 0, style, nullptr});
  }

  INT_PTR Dialog(Platform::FormRequest& form) override {
    boxes_.unexpected_.push_back({form.title, form.text, {}, false, 0, nullptr});
    return IDCANCEL;
  }

  INT_PTR ShellExecute(const WCHAR* verb, const WCHAR* file, const WCHAR* arguments, int show) override {
    boxes_.starts_.push_back(
        {WString(ViewOf(verb)), WString(ViewOf(file)), WString(ViewOf(arguments)), show});
    return 42;  // greater than 32: success
  }

 private:
  static std::vector<int> ButtonsOf(UINT style) {
    switch (style & 0xF) {
      case MB_OK:
        return {IDOK};
      case MB_OKCANCEL:
        return {IDOK, IDCANCEL};
      case MB_YESNOCANCEL:
        return {IDCANCEL, IDYES, IDNO};
      case MB_YESNO:
        return {IDYES, IDNO};
      default:
        return {};
    }
  }

  BoxAnswers& boxes_;
  Platform::UserInterface* before_;
};

BoxAnswers::BoxAnswers(std::initializer_list<int> buttons)
    : answers_(buttons), responder_(std::make_unique<Responder>(*this)) {}
BoxAnswers::~BoxAnswers() = default;
