// Create Link from the selection to the links: the fields passed to the dialog, the setting, and the links
// that are created. Junctions and symbolic links, which not every system supports, are tested by
// test_create_link_menu.py.
#include "filetools/create_links_command.h"

#include <gmock/gmock.h>

#include <deque>

#include "filetools/link_calls.h"
#include "frame/host/host_types.h"
#include "frame/services/system_error_text.h"
#include "support/fake_host.h"
#include "support/read_shell_link.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kReadKind[] = "config.GetInt(1, \"CreateLink\", \"LastLinkValue\", value)";

std::string WroteKind(int kind) {
  return "config.SetInt(1, \"CreateLink\", \"LastLinkValue\", " + std::to_string(kind) + ")";
}

// Returns the message box of an error, with the system's text for it.
std::string LinkBox(DWORD error) {
  return "MessageBox(\"T000B0065\", \"" + ToUtf8(GetSystemErrorText(error)) + "\", 0x00000010)";
}

class CreateLinksCommand : public testing::Test {
 protected:
  CreateLinksCommand() { host_.targetPanel = panel_; }

  // Creates files and folders of one panel and selects them in this order.
  void Select(const std::vector<WString>& files, const std::vector<WString>& folders = {}) {
    for (const WString& name : files) {
      scratch_.Write(W("view\\") + name, "is " + ToUtf8(name));
      host_.selection.push_back(host_.AddFileIn(view_, name));
    }
    for (const WString& name : folders) {
      scratch_.MakeFolder(W("view\\") + name);
      host_.selection.push_back(
          &folders_.emplace_back(host_.recorder, view_, name, FILE_ATTRIBUTE_DIRECTORY));
    }
  }

  void StoreKind(u32 kind) { host_.config.numbers[{W("CreateLink"), W("LastLinkValue")}] = kind; }

  // Runs the command. The dialog must open once; `answer` edits its form.
  void Run(const std::function<INT_PTR(CreateLinksForm&)>& answer) {
    int shown = 0;
    CreateLinkCommand(host_, [&](IHostApp& host, CreateLinksForm& form) {
      EXPECT_EQ(&host, &host_);
      ++shown;
      return answer(form);
    });
    EXPECT_EQ(shown, 1);
    ExpectAllReleased(host_);
  }

  void RunWithoutADialog() {
    CreateLinkCommand(host_, [](IHostApp&, CreateLinksForm&) {
      ADD_FAILURE() << "a dialog";
      return IDOK;
    });
    ExpectAllReleased(host_);
  }

  // Chooses this kind and closes the dialog with OK.
  void RunWithKind(int kind) {
    Run([kind](CreateLinksForm& form) {
      form.linkKind = kind;
      UpdateForKind(form);
      FinishForm(form);
      return IDOK;
    });
  }

  // Cancels the dialog and returns its form as it was shown.
  CreateLinksForm ShownForm() {
    CreateLinksForm shown;
    Run([&shown](CreateLinksForm& form) {
      shown = form;
      return IDCANCEL;
    });
    return shown;
  }

  std::vector<std::string> Outcome() {
    return host_.recorder.CallsOf({"config.", "LogMessage", "MessageBox"});
  }

  WString InPanel(const WString& name) const { return panel_ + name; }
  WString InView(const WString& name) const { return view_ + name; }

  ScratchFolder scratch_;
  ShellObjects shell_;
  WString view_ = scratch_.MakeFolder(W("view")) + W("\\");
  WString panel_ = scratch_.MakeFolder(W("panel")) + W("\\");
  FakeHost host_;
  std::deque<FakeFileItem> folders_;
};

// Before the dialog.

TEST_F(CreateLinksCommand, TakesFilesAndFoldersOfTheSelectionThenTheOtherPanelThenTheSetting) {
  Select({W("a.txt")});
  ShownForm();
  EXPECT_THAT(host_.recorder.CallsOf({"CreateFileList", "FileListRequest", "GetTargetPanelPath", "config."}),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 19, 0)",
                          "GetTargetPanelPath(4096)", kReadKind));
}

TEST_F(CreateLinksCommand, WithoutItemsItEndsInSilence) {
  RunWithoutADialog();
  EXPECT_THAT(host_.recorder.CallsOf({"GetTargetPanelPath", "config.", "MessageBox", "Log"}), IsEmpty());
}

TEST_F(CreateLinksCommand, ListOfARefusedRequestIsNotLookedAt) {
  Select({W("a.txt")});
  host_.refusedRequest = kListSelectedItems;
  host_.fillsRefusedLists = true;
  RunWithoutADialog();
  EXPECT_THAT(host_.recorder.CallsOf({"item ", "GetTargetPanelPath", "MessageBox", "Log"}), IsEmpty());
}

TEST_F(CreateLinksCommand, WithoutAnotherPanelItEndsInSilence) {
  Select({W("a.txt")});
  host_.targetPanel.clear();
  RunWithoutADialog();
  EXPECT_THAT(host_.recorder.CallsOf({"config.", "MessageBox", "Log"}), IsEmpty());
}

TEST_F(CreateLinksCommand, OneFileIsTheTargetAndItsNameInTheOtherPanelTheLink) {
  Select({W("a \u00FC \u0416.txt")});
  const CreateLinksForm form = ShownForm();
  EXPECT_EQ(form.linkName, InPanel(W("a \u00FC \u0416.txt")));
  EXPECT_EQ(form.targetName, InView(W("a \u00FC \u0416.txt")));
  EXPECT_EQ(form.linkText, form.linkName);
  EXPECT_EQ(form.targetText, form.targetName);
  EXPECT_FALSE(form.targetIsFolder);
  EXPECT_FALSE(form.multiple);
  EXPECT_THAT(host_.recorder.CallsOf({"item a \u00FC \u0416.txt.GetName"}),
              ElementsAre("item a \u00FC \u0416.txt.GetName(4096)"));
  EXPECT_THAT(host_.recorder.CallsOf({"item a \u00FC \u0416.txt.GetFullPath"}),
              ElementsAre("item a \u00FC \u0416.txt.GetFullPath(4096)"));
}

TEST_F(CreateLinksCommand, OneFolderIsRecognizedByItsAttributes) {
  Select({}, {W("sub")});
  const CreateLinksForm form = ShownForm();
  EXPECT_TRUE(form.targetIsFolder);
  EXPECT_FALSE(form.multiple);
  EXPECT_EQ(form.linkName, InPanel(W("sub")));
  EXPECT_EQ(form.targetName, InView(W("sub")));
}

TEST_F(CreateLinksCommand, SeveralItemsShowTheirFoldersWithAStar) {
  Select({W("a.txt"), W("b.txt")});
  const CreateLinksForm form = ShownForm();
  EXPECT_TRUE(form.multiple);
  EXPECT_EQ(form.linkName, InPanel(W("*")));
  EXPECT_EQ(form.targetName, view_ + W("*"));
}

TEST_F(CreateLinksCommand, SeveralItemsOfARootShowTwoBackslashesWhichIsIntended) {
  host_.selection = {host_.AddFileIn(W("Z:\\"), W("a")), host_.AddFileIn(W("Z:\\"), W("b"))};
  EXPECT_EQ(ShownForm().targetName, W("Z:\\\\*"));
}

TEST_F(CreateLinksCommand, SeveralItemsSayWhetherFilesOrFoldersAreAmongThem) {
  Select({W("a.txt"), W("b.txt")});
  CreateLinksForm form = ShownForm();
  EXPECT_TRUE(form.anyFile);
  EXPECT_FALSE(form.anyFolder);

  Select({}, {W("sub")});
  form = ShownForm();
  EXPECT_TRUE(form.anyFile);
  EXPECT_TRUE(form.anyFolder);

  host_.selection.clear();
  Select({}, {W("sub"), W("more")});
  form = ShownForm();
  EXPECT_FALSE(form.anyFile);
  EXPECT_TRUE(form.anyFolder);
}

TEST_F(CreateLinksCommand, AKindThatWasStoredIsTheOneItOpensOn) {
  Select({W("a.txt")});
  for (const u32 kind : {1u, 2u, 3u, 4u}) {
    StoreKind(kind);
    EXPECT_EQ(ShownForm().linkKind, static_cast<int>(kind));
  }
}

TEST_F(CreateLinksCommand, WithNothingStoredItOpensOnTheJunction) {
  Select({W("a.txt")});
  EXPECT_EQ(ShownForm().linkKind, 2);
  StoreKind(0xFFFFFFFF);
  EXPECT_EQ(ShownForm().linkKind, 2);
}

TEST_F(CreateLinksCommand, WithAStoredSevenItOpensOnNoRowAndOkThenMakesNoLinkAndStoresNothing) {
  Select({W("a.txt")});
  StoreKind(7);
  Run([](CreateLinksForm& form) {
    EXPECT_EQ(form.linkKind, -1);
    FinishForm(form);
    return IDOK;
  });
  EXPECT_THAT(Outcome(), ElementsAre(kReadKind));
  EXPECT_THAT(scratch_.Names(W("panel")), IsEmpty());
}

TEST_F(CreateLinksCommand, SymbolicLinksAreThoseOfTheSystem) {
  Select({W("a.txt")});
  EXPECT_TRUE(ShownForm().symlinksSupported);
  host_.isVista = false;
  EXPECT_FALSE(ShownForm().symlinksSupported);
}

// After the dialog.

TEST_F(CreateLinksCommand, CancelStoresNothingAndMakesNothing) {
  Select({W("a.txt")});
  StoreKind(1);
  Run([](CreateLinksForm& form) {
    form.linkKind = 4;
    UpdateForKind(form);
    FinishForm(form);
    return IDCANCEL;
  });
  EXPECT_THAT(Outcome(), ElementsAre(kReadKind));
  EXPECT_THAT(scratch_.Names(W("panel")), IsEmpty());
}

TEST_F(CreateLinksCommand, OneFileGetsOneLinkAfterTheKindWasStored) {
  Select({W("a.txt")});
  RunWithKind(1);
  EXPECT_THAT(Outcome(), ElementsAre(kReadKind, WroteKind(1),
                                     LinkCreated("Hardlink", InPanel(W("a.txt")), InView(W("a.txt")))));
  scratch_.Write(W("view\\a.txt"), "changed");
  EXPECT_EQ(scratch_.Read(W("panel\\a.txt")), "changed");
}

TEST_F(CreateLinksCommand, TheKindIsStoredThoughTheLinkFailsAndTheErrorIsShown) {
  Select({W("a.txt")});
  scratch_.Write(W("panel\\a.txt"), "here first");
  RunWithKind(1);
  EXPECT_THAT(Outcome(), ElementsAre(kReadKind, WroteKind(1),
                                     LinkFailed("Hardlink", 183, InPanel(W("a.txt")), InView(W("a.txt"))),
                                     LinkBox(183)));
  EXPECT_EQ(scratch_.Read(W("panel\\a.txt")), "here first");
}

TEST_F(CreateLinksCommand, OneLinkGoesWhereTheUserSaidToWhatTheUserSaid) {
  Select({W("a.txt")});
  const WString link = scratch_.Path(W("elsewhere.dat"));
  const WString target = scratch_.Write(W("other.txt"), "other");
  Run([&](CreateLinksForm& form) {
    form.linkKind = 1;
    form.linkText = link;
    form.targetText = target;
    FinishForm(form);
    return IDOK;
  });
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage"}), ElementsAre(LinkCreated("Hardlink", link, target)));
  EXPECT_EQ(scratch_.Read(W("elsewhere.dat")), "other");
  EXPECT_THAT(scratch_.Names(W("panel")), IsEmpty());
}

TEST_F(CreateLinksCommand, TheShortcutOfOneFileLosesTheOldExtension) {
  Select({W("a.txt")});
  RunWithKind(4);
  EXPECT_THAT(scratch_.Names(W("panel")), ElementsAre(W("a.lnk")));
  EXPECT_EQ(ReadShellLink(InPanel(W("a.lnk"))).target, InView(W("a.txt")));
  EXPECT_THAT(Outcome(), ElementsAre(kReadKind, WroteKind(4),
                                     LinkCreated("Unknown", InPanel(W("a.lnk")), InView(W("a.txt")))));
}

TEST_F(CreateLinksCommand, TheShortcutOfOneFileWithoutAnExtensionHasItsBareNameByDesign) {
  Select({W("bare")});
  RunWithKind(4);
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage"}),
              ElementsAre(LinkCreated("Unknown", InPanel(W("bare")), InView(W("bare")))));
}

TEST_F(CreateLinksCommand, AFolderIsLinkedAsOne) {
  Select({}, {W("sub")});
  RunWithKind(4);
  EXPECT_EQ(ReadShellLink(InPanel(W("sub.lnk"))).workingFolder, W("")) << "a folder starts nowhere";
}

TEST_F(CreateLinksCommand, SeveralItemsAreLinkedInTheirOrder) {
  Select({W("z.txt"), W("a.txt"), W("m")});
  RunWithKind(1);
  EXPECT_THAT(Outcome(), ElementsAre(kReadKind, WroteKind(1),
                                     LinkCreated("Hardlink", InPanel(W("z.txt")), InView(W("z.txt"))),
                                     LinkCreated("Hardlink", InPanel(W("a.txt")), InView(W("a.txt"))),
                                     LinkCreated("Hardlink", InPanel(W("m")), InView(W("m")))));
  EXPECT_EQ(scratch_.Read(W("panel\\m")), "is m");
}

TEST_F(CreateLinksCommand, OfSeveralItemsTheNamesOfTheDialogAreForTheEyeOnly) {
  Select({W("a"), W("b")});
  Run([this](CreateLinksForm& form) {
    form.linkKind = 1;
    form.linkName = scratch_.Path(W("elsewhere"));
    form.targetName = scratch_.Path(W("other"));
    return IDOK;
  });
  EXPECT_THAT(scratch_.Names(W("panel")), ElementsAre(W("a"), W("b")));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("panel"), W("view")));
}

TEST_F(CreateLinksCommand, ShortcutsOfSeveralItemsKeepTheOldExtensionsByDesign) {
  Select({W("a.txt"), W("bare")}, {W("sub.d")});
  RunWithKind(4);
  EXPECT_THAT(scratch_.Names(W("panel")), ElementsAre(W("a.txt.lnk"), W("bare.lnk"), W("sub.d.lnk")));
  EXPECT_EQ(ReadShellLink(InPanel(W("a.txt.lnk"))).workingFolder, view_);
  EXPECT_EQ(ReadShellLink(InPanel(W("sub.d.lnk"))).workingFolder, W(""));
  EXPECT_EQ(ReadShellLink(InPanel(W("sub.d.lnk"))).target, InView(W("sub.d")));
}

TEST_F(CreateLinksCommand, TheFirstErrorOfSeveralEndsItAndTheLinksBeforeItStay) {
  Select({W("a"), W("b"), W("c"), W("d")});
  scratch_.Write(W("panel\\b"), "here first");
  RunWithKind(1);
  EXPECT_THAT(Outcome(),
              ElementsAre(kReadKind, WroteKind(1), LinkCreated("Hardlink", InPanel(W("a")), InView(W("a"))),
                          LinkFailed("Hardlink", 183, InPanel(W("b")), InView(W("b"))), LinkBox(183)));
  EXPECT_THAT(scratch_.Names(W("panel")), ElementsAre(W("a"), W("b")));
  EXPECT_EQ(scratch_.Read(W("panel\\b")), "here first");
}

TEST_F(CreateLinksCommand, BeforeVistaASymbolicLinkIsRefusedInABoxAfterTheKindWasStored) {
  host_.isVista = false;
  Select({W("a.txt")});
  RunWithKind(3);
  EXPECT_THAT(Outcome(),
              ElementsAre(kReadKind, WroteKind(3), "MessageBox(\"L00CC0065\", \"T00CC0065\", 0x00000010)"));
  EXPECT_THAT(scratch_.Names(W("panel")), IsEmpty());
}

TEST_F(CreateLinksCommand, BeforeVistaSeveralSymbolicLinksAreRefusedInOneBox) {
  host_.isVista = false;
  Select({W("a"), W("b")});
  RunWithKind(3);
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage", "MessageBox"}),
              ElementsAre("MessageBox(\"L00CC0065\", \"T00CC0065\", 0x00000010)"));
}

TEST_F(CreateLinksCommand, BeforeVistaTheOtherKindsAreMade) {
  host_.isVista = false;
  Select({W("a.txt")});
  RunWithKind(1);
  EXPECT_THAT(scratch_.Names(W("panel")), ElementsAre(W("a.txt")));
}

TEST_F(CreateLinksCommand, LongNamesAndPathsAreReadWithinTheirBounds) {
  host_.selection = {host_.AddFileIn(W("C:\\") + WString(9000, W('p')) + W("\\"), WString(9000, W('n')))};
  host_.targetPanel = W("C:\\") + WString(9000, W('t')) + W("\\");
  const CreateLinksForm form = ShownForm();
  EXPECT_LE(form.targetName.size(), 4095u);
  EXPECT_LE(form.linkName.size(), 2u * 4095u);
}

TEST_F(CreateLinksCommand, EveryRefusalOfTheHostEndsItQuietly) {
  scratch_.Write(W("view\\a"), "abc");
  ExpectEveryRefusalEndsQuietly(
      [this](FakeHost& host) {
        host.targetPanel = panel_;
        host.selection = {host.AddFileIn(view_, W("a")), host.AddFileIn(view_, W("b"))};
      },
      [this](FakeHost& host) {
        std::filesystem::remove(scratch_.NativePath(W("panel\\a")));
        CreateLinkCommand(host, [](IHostApp&, CreateLinksForm& form) {
          form.linkKind = 1;
          return IDOK;
        });
      });
}

}  // namespace
