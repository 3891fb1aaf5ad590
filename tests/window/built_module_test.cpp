// The built module in a host process: its version resource, and a command with its dialog and its question,
// run from the library.
#include <gmock/gmock.h>

#include <memory>

#include "frame/host/command_numbers.h"
#include "frame/host/plugin_interface.h"
#include "frame/services/message_texts.h"
#include "support/fake_host.h"
#include "window/dialog_controls.h"
#include "window/english_texts.h"
#include "window/modal_driver.h"
#include "window/program_folder.h"
#include "window/screenshot.h"

using namespace Velmora::SDK;

namespace {

using testing::ElementsAre;

constexpr int kFind = 1123;

class BuiltModule : public testing::Test {
 protected:
  using CreateFunction = void* (*)(Velmora::SDK::s32);
  using DeleteFunction = bool (*)(void*, Velmora::SDK::s32);

  void SetUp() override {
    module_ = LoadLibraryW((ProgramFolder() + W("\\QXUtils.dll")).c_str());
    ASSERT_NE(module_, nullptr) << GetLastError();
  }
  void TearDown() override {
    if (extension_) Export<DeleteFunction>("Delete")(extension_, 0);
    if (module_) FreeLibrary(module_);
  }

  IPluginInterface& FileUtils() {
    extension_ = static_cast<IPluginInterface*>(Export<CreateFunction>("Create")(0));
    extension_->OnStart(&host_);
    return *extension_;
  }

  HMODULE module_ = nullptr;
  OwnerWindow owner_{640, 480};
  FakeHost host_;

 private:
  template <typename Function>
  Function Export(const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

  IPluginInterface* extension_ = nullptr;
};

TEST_F(BuiltModule, CarriesItsVersion) {
  const HRSRC resource = FindResourceW(module_, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
  ASSERT_NE(resource, nullptr);
  const void* bytes = LockResource(LoadResource(module_, resource));
  const WStringView text(static_cast<const WCHAR*>(bytes), SizeofResource(module_, resource) / sizeof(WCHAR));
  const auto value = [&](WStringView name) {
    const std::size_t at = text.find(name);
    if (at == WStringView::npos) return WString();
    // The name is followed by its terminator and at most one more zero for alignment.
    const std::size_t begin = text.find_first_not_of(W('\0'), at + name.size());
    return WString(text.substr(begin, text.find(W('\0'), begin) - begin));
  };
  EXPECT_EQ(value(W("CompanyName")), W("QXUtils contributors"));
  EXPECT_EQ(value(W("ProductName")), W("QXUtils"));
  EXPECT_EQ(value(W("FileVersion")), W("1.3.0.0"));
  EXPECT_EQ(value(W("ProductVersion")), W("1.3.0.0"));
  EXPECT_EQ(value(W("OriginalFilename")), W("QXUtils.dll"));
}

TEST_F(BuiltModule, AsksForTheCommonControlsInItsOwnManifest) {
  const HRSRC resource = FindResourceW(module_, MAKEINTRESOURCEW(2), RT_MANIFEST);
  ASSERT_NE(resource, nullptr);
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module_, resource)));
  const std::string text(bytes, SizeofResource(module_, resource));
  EXPECT_THAT(text, testing::HasSubstr("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""));
}

TEST_F(BuiltModule, ReplaceCommandShowsItsDialogAndItsQuestionAndRenames) {
  host_.texts = EnglishTexts();
  host_.texts[kTextReplaceFindCue] = W("hint");
  host_.texts[kTextRenameCaption] = W("caption");
  host_.texts[kTextRenameQuestion] = W("%d names");
  host_.SelectFiles({W("one.txt"), W("two.txt"), W("three.doc")});
  IPluginInterface& fileUtils = FileUtils();
  EXPECT_EQ(RunModal([&] { return fileUtils.OnCommand(kCommandReplaceXWithY, 0, 0); },
                     {[this](HWND dialog) {
                        EXPECT_EQ(GetWindowLongPtrW(dialog, GWLP_HINSTANCE),
                                  reinterpret_cast<LONG_PTR>(module_));
                        EXPECT_EQ(CueBannerOf(dialog, kFind), W("hint"));
                        TypeText(dialog, W("o"));
                        PressKey(dialog, VK_TAB);
                        TypeText(dialog, W("00"));
                        PressKey(dialog, VK_RETURN);
                      },
                      [](HWND box) {
                        EXPECT_EQ(TextOf(box, kTitle), W("caption"));
                        PressKey(box, VK_RETURN);
                      }}),
            1);
  EXPECT_THAT(host_.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("one.txt"), W("00ne.txt")},
                                                            QueuedRename{W("two.txt"), W("tw00.txt")}));
  ExpectAllReleased(host_);
}

TEST_F(BuiltModule, CancelledReplaceDialogAsksAndRenamesNothing) {
  host_.SelectFiles({W("one.txt")});
  IPluginInterface& fileUtils = FileUtils();
  EXPECT_EQ(RunModal([&] { return fileUtils.OnCommand(kCommandReplaceXWithY, 0, 0); },
                     [](HWND dialog) {
                       TypeText(dialog, W("o"));
                       PressKey(dialog, VK_ESCAPE);
                     }),
            1);
  EXPECT_EQ(host_.fileOperation.Runs(), 0);
  ExpectAllReleased(host_);
}

TEST_F(BuiltModule, ConfirmationIsAskedOverTheMainWindowAndCancelledByEscape) {
  host_.texts = EnglishTexts();
  host_.mainWindow = owner_.Get();
  host_.SelectFiles({W("one.txt"), W("two.txt")});
  IPluginInterface& fileUtils = FileUtils();
  EXPECT_EQ(RunModal([&] { return fileUtils.OnCommand(kCommandUpperCase, 0, 0); },
                     [this](HWND box) {
                       EXPECT_EQ(GetWindow(box, GW_OWNER), owner_.Get());
                       EXPECT_NE(GetDlgItem(box, IDOK), nullptr);
                       EXPECT_NE(GetDlgItem(box, IDCANCEL), nullptr);
                       EXPECT_TRUE(SaveScreenshot(box, W("rename_confirmation")));
                       PressKey(box, VK_ESCAPE);
                     }),
            1);
  EXPECT_EQ(host_.fileOperation.Runs(), 0);
}

}  // namespace
