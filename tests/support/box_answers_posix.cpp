#include <deque>

#include "platform/posix/user_interface.h"
#include "support/box_answers.h"

class BoxAnswers::Responder final : public Platform::UserInterface {
 public:
  explicit Responder(std::initializer_list<int> buttons) : answers(buttons) {
    before_ = Platform::InstallUserInterface(this);
  }
  ~Responder() override { Platform::InstallUserInterface(before_); }

  int MessageBox(const WCHAR* text, const WCHAR* caption, UINT style) override {
    boxes.push_back(
        {WString(ViewOf(caption)), WString(ViewOf(text)), ButtonsOf(style), (style & 0xF0) != 0, style});
    if (answers.empty()) {
      ++unexpected;
      return IDCANCEL;
    }
    const int answer = answers.front();
    answers.pop_front();
    return answer;
  }

  INT_PTR Dialog(Platform::FormRequest&) override {
    ++unexpected;
    return IDCANCEL;
  }

  INT_PTR ShellExecute(const WCHAR* verb, const WCHAR* file, const WCHAR* arguments, int show) override {
    starts.push_back({WString(ViewOf(verb)), WString(ViewOf(file)), WString(ViewOf(arguments)), show});
    return 42;  // above 32: started
  }

  std::deque<int> answers;
  std::vector<ShownBox> boxes;
  std::vector<ShellStart> starts;
  int unexpected = 0;

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

  Platform::UserInterface* before_;
};

BoxAnswers::BoxAnswers(std::initializer_list<int> buttons)
    : responder_(std::make_unique<Responder>(buttons)) {}
BoxAnswers::~BoxAnswers() = default;

const std::vector<ShownBox>& BoxAnswers::Boxes() const { return responder_->boxes; }
const std::vector<ShellStart>& BoxAnswers::Starts() const { return responder_->starts; }
int BoxAnswers::Unexpected() const { return responder_->unexpected; }
int BoxAnswers::Unused() const { return static_cast<int>(responder_->answers.size()); }
