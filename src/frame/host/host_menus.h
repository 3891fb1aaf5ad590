// Interfaces that declare commands and build the extension's menu. Used in OnRegister.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// Lives as long as the host.
class IHostCommandFactory {
 public:
  virtual void* Reserved() = 0;  // makes CreateCommand the second virtual function
  virtual CommandHandle CreateCommand(u32 number, u32 flags, TextId text, TextId tip, u32 displayWord,
                                      u32 zero) = 0;

 protected:
  ~IHostCommandFactory() = default;
};

// Lives as long as the host.
class IHostMenuBuilder {
 public:
  virtual MenuHandle AddSubMenuText(MenuHandle parent, const WCHAR* text, u32 zero) = 0;
  virtual MenuHandle AddSubMenu(MenuHandle parent, TextId text, u32 one, u32 alsoOne) = 0;
  virtual MenuHandle CreateRootMenu(TextId text, u32 one, u32 zero) = 0;
  virtual MenuHandle AddCategoryMenu(MenuHandle parent, TextId text, u32 one) = 0;  // may return null
  virtual MenuHandle AddSubMenuUnder(MenuHandle parent, TextId text, u32 one) = 0;  // may return null
  // Ignores null handles.
  virtual void AddCommand(MenuHandle menu, CommandHandle command, u32 one, u32 zero) = 0;
  virtual void AddSeparator(MenuHandle menu, u32 zero) = 0;

 protected:
  ~IHostMenuBuilder() = default;
};

}  // namespace Velmora::SDK
