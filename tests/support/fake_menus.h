// The fake host's menu builder and command factory. In the record a menu is named by its text id ("menu
// 0x07D1006D", the root "root") and a command by its number ("command 30000").
#pragma once

#include <memory>

#include "frame/host/host_menus.h"
#include "support/host_recorder.h"

// Maps opaque handles to the names in the record.
class FakeHandles {
 public:
  template <typename Handle>
  Handle Make(std::string name) {
    names_.push_back(std::make_unique<std::string>(std::move(name)));
    return reinterpret_cast<Handle>(names_.back().get());
  }
  template <typename Handle>
  static std::string NameOf(Handle handle) {
    return handle ? *reinterpret_cast<std::string*>(handle) : "null";
  }

 private:
  std::vector<std::unique_ptr<std::string>> names_;
};

class FakeCommandFactory final : public Velmora::SDK::IHostCommandFactory {
 public:
  explicit FakeCommandFactory(HostRecorder& recorder) : recorder_(recorder) {}
  void* Reserved() override;
  Velmora::SDK::CommandHandle CreateCommand(Velmora::SDK::u32 number, Velmora::SDK::u32 flags,
                                            Velmora::SDK::TextId text, Velmora::SDK::TextId tip,
                                            Velmora::SDK::u32 displayWord, Velmora::SDK::u32 zero) override;

 private:
  HostRecorder& recorder_;
  FakeHandles handles_;
};

class FakeMenuBuilder final : public Velmora::SDK::IHostMenuBuilder {
 public:
  explicit FakeMenuBuilder(HostRecorder& recorder) : recorder_(recorder) {}

  // Menus with this text id cannot be created; 0 for none. Adding to an unknown menu is recorded as a
  // problem; adding an unknown command is not.
  Velmora::SDK::TextId refusedText = 0;

  Velmora::SDK::MenuHandle AddSubMenuText(Velmora::SDK::MenuHandle parent, const WCHAR* text,
                                          Velmora::SDK::u32 zero) override;
  Velmora::SDK::MenuHandle AddSubMenu(Velmora::SDK::MenuHandle parent, Velmora::SDK::TextId text,
                                      Velmora::SDK::u32 one, Velmora::SDK::u32 alsoOne) override;
  Velmora::SDK::MenuHandle CreateRootMenu(Velmora::SDK::TextId text, Velmora::SDK::u32 one,
                                          Velmora::SDK::u32 zero) override;
  Velmora::SDK::MenuHandle AddCategoryMenu(Velmora::SDK::MenuHandle parent, Velmora::SDK::TextId text,
                                           Velmora::SDK::u32 one) override;
  Velmora::SDK::MenuHandle AddSubMenuUnder(Velmora::SDK::MenuHandle parent, Velmora::SDK::TextId text,
                                           Velmora::SDK::u32 one) override;
  void AddCommand(Velmora::SDK::MenuHandle menu, Velmora::SDK::CommandHandle command, Velmora::SDK::u32 one,
                  Velmora::SDK::u32 zero) override;
  void AddSeparator(Velmora::SDK::MenuHandle menu, Velmora::SDK::u32 zero) override;

 private:
  void CheckMenu(Velmora::SDK::MenuHandle menu, const char* operation);
  Velmora::SDK::MenuHandle Make(const std::string& call, Velmora::SDK::TextId text, const std::string& name);

  HostRecorder& recorder_;
  FakeHandles handles_;
};
