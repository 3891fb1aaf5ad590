#include "host/verbs/window_verb.h"

#include "host/controls/controls.h"
#include "host/output/failures.h"
#include "host/system/paths.h"
#include "host/verbs/run.h"

namespace QxHost {
namespace {

class WindowVerb final : public Verb {
 public:
  const char* Name() const override { return "window"; }
  const char* Help() const override {
    return "Open MultiRename's window on the selected items (Windows build)";
  }

  void Declare(CLI::App& app) override {
    AddFlag(app, "--keep-open", keepOpen_, "Once the window has closed, ask whether to open it again");
    AddOptionalText(app, "--screenshot", "FILE", picture_,
                    "Save a picture of the window (PNG) when the first preview has ended, and close it");
    AddRest(app, "ITEM", items_,
            "The files and folders to rename, in this order: /a/b, Z:\\a\\b or relative");
  }

  const char* HelpFooter() const override {
    return "Examples:\n"
           "  qxhost window *.jpg                            rename photos and see how their names change\n"
           "  qxhost window --screenshot window.png *.jpg    a picture of the window; nothing is renamed\n"
           "  qxhost --answer yes --answer no window --keep-open *.jpg\n"
           "                                                 two windows, one after the other\n"
           "`qxhost rename` renames by the same rules without a window, in the native build too.\n";
  }

  const std::vector<std::string>& Items() const override { return items_; }

  void CheckDryRun() const override {
    throw BadCall(
        "--dry-run applies to renames only, and the window saves undo files and profiles too: leave "
        "--dry-run "
        "out. The window shows every new name before it renames");
  }

  std::string NoteOfZero() const override {
    if (wasPictureLost_) return "the picture could not be saved";
    return "the module could not open the window of MultiRename";
  }

  int Execute(Run& run) override {
    if (!kControlsAreDrawn) {
      throw BadCall(
          "window: this build has no windows; `qxhost rename` renames by the same rules without one");
    }
    PictureRequest& picture = run.Host().picture;
    if (picture_) picture.path = FullPathOfPicture();
    run.MakeConfigFolder();
    Extensions& extensions = run.LoadExtensions();
    extensions.Start();
    s32 answer = extensions.RunWindow(Velmora::SDK::kCommandMultiRename);
    while (answer == 1 && keepOpen_ && WantsReopen(run.Host())) {
      extensions.Renew(Velmora::SDK::kCommandMultiRename);
      answer = extensions.RunWindow(Velmora::SDK::kCommandMultiRename);
    }
    extensions.Stop();
    wasPictureLost_ = answer == 1 && picture_ && !picture.isSaved;
    return wasPictureLost_ ? 0 : answer;
  }

 private:
  WString FullPathOfPicture() const {
    const std::optional<WString> path = FullPathOf(PathFromUtf8(*picture_));
    if (!path || picture_->empty()) throw BadCall("--screenshot: \"" + *picture_ + "\" is not a path");
    return *path;
  }

  static bool WantsReopen(Shared& host) {
    return host.questions.AskBox(W("qxhost"), W("Open the window again?"), MB_YESNO | MB_ICONQUESTION) ==
           IDYES;
  }

  bool keepOpen_ = false;
  std::optional<std::string> picture_;
  std::vector<std::string> items_;
  bool wasPictureLost_ = false;
};

}  // namespace

std::unique_ptr<Verb> MakeWindowVerb() { return std::make_unique<WindowVerb>(); }

}  // namespace QxHost
