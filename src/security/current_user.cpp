#include "security/current_user.h"

#include <array>

#include "platform/security_api.h"

namespace {

constexpr DWORD kUserNameChars = 1024;
using UserNameBuffer = std::array<WCHAR, kUserNameChars + 1>;

}  // namespace

WString CurrentUserName() {
  UserNameBuffer name = {};
  DWORD size = kUserNameChars;
  return GetUserNameW(name.data(), &size) ? WString(name.data()) : WString();
}

WString CurrentAccountName() {
  UserNameBuffer name = {};
  ULONG size = kUserNameChars;
  return GetUserNameExW(NameSamCompatible, name.data(), &size) ? WString(name.data()) : WString();
}
