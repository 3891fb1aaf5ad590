// Making one link: a hard link, a junction, a symbolic link or a shortcut file.
//
// All errors are Windows error numbers, 0 for success. Each outcome is a line of the host's log, of
// category 1. Everything runs on the thread of the host's call, on which the host has initialised COM.
#pragma once

#include "frame/host/host_app.h"

// The number that the dialog's list, the setting, the script parameter and the helper's message share. What
// comes from outside may be any number, so this type holds them all: those without a name make no link.
enum LinkKind : Velmora::SDK::s32 {
  kHardLink = 1,
  kJunction = 2,
  kSymbolicLink = 3,
  kShortcut = 4,
};

// The link at `link` to `target`, which is a folder if `isFolder`, and the log line if there is a host: the
// instance in the elevated helper may have none. ERROR_INVALID_DATA (13) for a junction that cannot be made
// and for an unknown kind, ERROR_PATH_NOT_FOUND (3) for a shortcut, else the system's error (C-407).
DWORD CreateLinkOfKind(Velmora::SDK::IHostApp* host, LinkKind kind, const WString& link,
                       const WString& target, bool isFolder);

// The same by way of the elevated helper (service 3250), with a log line here too once the helper was
// reached. ERROR_ACCESS_DENIED (5) if it was not.
DWORD CreateLinkElevated(Velmora::SDK::IHostApp& host, LinkKind kind, const WString& link,
                         const WString& target, bool isFolder);

// CreateLinkOfKind; what the system refuses for lack of rights goes to the helper, unless the process is
// elevated or the system has no helper. Both attempts are logged (C-412). An error that remains is shown in a
// box.
DWORD CreateLinkWithRetry(Velmora::SDK::IHostApp& host, LinkKind kind, const WString& link,
                          const WString& target, bool isFolder);
