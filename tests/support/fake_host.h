// An IHostApp in memory, for tests of everything that calls the host.
//
// It records every call in order with its arguments, tracks the objects that are taken and given back,
// refuses the calls that the test selects, and answers questions from queues. It is stricter than a host has
// to be: a text that it lends is overwritten at the next call, and any use of an object after its release is
// recorded as a problem (HostRecorder::Problem).
#pragma once

#include <deque>
#include <iosfwd>

#include "frame/host/host_app.h"
#include "support/fake_files.h"
#include "support/fake_helper_channel.h"
#include "support/fake_menus.h"
#include "support/fake_properties.h"
#include "support/fake_script_commands.h"
#include "support/fake_settings.h"
#include "support/fake_xml_document.h"

// The answer to one AskText or AskTextSimple. If `ok` is false, the buffer is left unchanged.
struct TextAnswer {
  bool ok;
  WString text;
};

// The answer to one AskChoice: the text of the chosen row, which need not be among the offered ones.
struct ChoiceAnswer {
  bool ok;
  WString text;
};

// A recorded call of AskChoice.
struct AskedChoice {
  WString caption;
  WString prompt;
  std::vector<WString> rows;
  Velmora::SDK::s32 selected;
  bool isRestZero;  // whether the result, and all bytes without a name, are zero
};

// A list that was handed to the host (21120): its mode and the full paths of its items.
struct ResultList {
  Velmora::SDK::u32 mode;
  std::vector<WString> paths;
  friend bool operator==(const ResultList&, const ResultList&) = default;
};
void PrintTo(const ResultList& list, std::ostream* out);

// A test that needs other behaviour derives a class and overrides the operation.
class FakeHost : public Velmora::SDK::IHostApp {
 public:
  virtual ~FakeHost() = default;

  HostRecorder recorder;

  // Add an item to the host's folder. The items belong to the host and live as long as it does.
  FakeFileItem* AddFile(const WString& name);
  FakeFileItem* AddFolder(const WString& name);
  // Adds a file of another folder, which ends in a backslash; for example, a real one.
  FakeFileItem* AddFileIn(const WString& folder, const WString& name);
  std::vector<FakeFileItem*> selection;  // 21215
  std::vector<FakeFileItem*> view;       // 21110
  FakeFileItem* focused = nullptr;       // 21111; null: the request fails
  Velmora::SDK::u32 refusedRequest = 0;  // the list request with this code fails
  bool fillsRefusedLists = false;        // a list request that fails has filled its list nevertheless
  std::vector<ResultList> resultLists;   // 21120, in the order of the requests
  // Adds files with these names and selects them, in this order.
  void SelectFiles(const std::vector<WString>& names);

  // Texts of the language table. An id that is missing here has the text "T" followed by its eight digits
  // ("T07D1006D"). Titles begin with "L" instead, and texts of another module with "M", the module's number
  // and a colon.
  std::map<Velmora::SDK::TextId, WString> texts;
  std::map<Velmora::SDK::TextId, WString> titles;
  std::map<Velmora::SDK::TextId, WString> commonTexts;  // of module 0

  WString keyText = W("key");     // the name of every key
  std::vector<HWND> noteWindows;  // the owner windows of the timed notes

  bool isVista = true;
  bool isClassA = false;
  bool isClassB = false;
  bool isElevated = false;
  Velmora::SDK::u32 moduleNumber = 7;  // what FindModuleByGuid returns
  HWND mainWindow = nullptr;
  WString targetPanel;  // the folder of the other panel, ending in a backslash; empty without a second panel

  // Answers, in order. If none is left, a question is refused, a box is answered with Cancel, and both count
  // as unexpected.
  std::deque<TextAnswer> textAnswers;
  std::deque<int> boxAnswers;
  std::deque<ChoiceAnswer> choiceAnswers;
  std::vector<AskedChoice> choices;  // the questions that were asked
  int unexpectedQuestions = 0;

  FakeMenuBuilder menus{recorder};
  FakeCommandFactory factory{recorder};
  FakeCommandSet scriptCommands{recorder};
  FakeConfig config{recorder};
  FakeFileOperation fileOperation{recorder};
  FakePropertyDefiner definer{recorder};
  FakeViewRefresh refresh{recorder};
  FakeXmlFiles xmlFiles;  // the documents that can be loaded
  FakeHelperChannel helper{recorder};

  void ExtensionClosed() override;
  HWND GetMainWindow() override;
  Velmora::SDK::u32 FindModuleByGuid(const char* id) override;
  const WCHAR* GetLanguageString(Velmora::SDK::TextId text) override;
  const WCHAR* GetModuleLanguageString(Velmora::SDK::u32 module, Velmora::SDK::TextId text) override;
  const WCHAR* GetLanguageTitle(Velmora::SDK::TextId text) override;
  const WCHAR* GetKeyText(WCHAR* buffer, Velmora::SDK::u32 size, Velmora::SDK::u32 key,
                          Velmora::SDK::u32 sixteen, Velmora::SDK::u32 zero) override;
  void PostCommand(Velmora::SDK::u32 number, std::intptr_t a, std::intptr_t b) override;
  int FileListRequest(Velmora::SDK::u32 code, Velmora::SDK::IHostFileList* list, Velmora::SDK::u32 mode,
                      Velmora::SDK::u32 zero) override;
  Velmora::SDK::IHostCommandFactory* GetCommandFactory() override;
  Velmora::SDK::IHostMenuBuilder* GetMenuBuilder() override;
  Velmora::SDK::IHostCustomCommandSet* GetCustomCommandSet(const char* name) override;
  Velmora::SDK::IHostPropertyManager* GetPropertyManager() override;
  Velmora::SDK::IHostXmlDocument* CreateXmlDocument() override;
  Velmora::SDK::IHostConfig* GetConfig() override;
  void* GetService(Velmora::SDK::u32 number, std::uintptr_t handle) override;
  void ReleaseService(void* service, Velmora::SDK::u32 numberOrZero) override;
  bool IsProcessElevated() override;
  bool IsVistaOrNewer() override;
  bool IsOsClassA() override;
  bool IsOsClassB() override;
  bool GetConfigPath(WCHAR* buffer, Velmora::SDK::u32 size) override;
  bool GetTargetPanelPath(WCHAR* buffer, Velmora::SDK::u32 size) override;
  Velmora::SDK::IHostFileList* CreateFileList() override;
  Velmora::SDK::IHostPropertyList* CreatePropertyList() override;
  Velmora::SDK::IHostStringList* CreateStringList() override;
  void LogMessage(Velmora::SDK::u32 category, Velmora::SDK::u32 level, const WCHAR* format, ...) override;
  void LogText(Velmora::SDK::u32 category, Velmora::SDK::u32 level, const WCHAR* text) override;
  void ShowTimedNote(HWND window, const WCHAR* text, Velmora::SDK::u32 milliseconds,
                     Velmora::SDK::u32 two) override;
  int MessageBox(const WCHAR* title, const WCHAR* text, Velmora::SDK::u32 style) override;
  int AskTextSimple(const WCHAR* title, const WCHAR* prompt, Velmora::SDK::u32 zero,
                    Velmora::SDK::u32 alsoZero, WCHAR* buffer, Velmora::SDK::u32 size) override;
  bool AskChoice(Velmora::SDK::AskChoiceRecord* record) override;
  bool AskText(const WCHAR* title, const WCHAR* prompt, const WCHAR* defaultText, const WCHAR* hint,
               WCHAR* buffer, Velmora::SDK::u32 size, HWND parent, Velmora::SDK::u32 zero) override;
  bool ReadTextFile(WCHAR* buffer, Velmora::SDK::u32 size, const WCHAR* path) override;
  // Returns null: the fake host has no controls.
  HWND CreateControl(Velmora::SDK::u32 kind, HWND parent, Velmora::SDK::u32 style) override;

 private:
  bool AnswerText(WCHAR* buffer, Velmora::SDK::u32 size);
  // Returns a text such as "T07D1006D".
  static WString NameOf(const char* kind, Velmora::SDK::TextId text);

  std::deque<FakeFileItem> items_;
  std::deque<FakeFileList> lists_;  // kept after their release, to detect a later use
  std::deque<FakeStringList> stringLists_;
  std::deque<FakeXmlDocument> documents_;
};

// Fails the test if an object was not given back, or if the interfaces were used in a way that the host does
// not allow.
void ExpectAllReleased(const FakeHost& host);
