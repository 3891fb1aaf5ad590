// Creates links: hard links, junctions, symbolic links and shortcut files.
//
// All functions return 0 or a Windows error number. Each result is logged in the host's log, in category 1.
// The functions must run on the thread of the host's call, on which the host has initialised COM.
#pragma once

#include "frame/host/host_app.h"

// The kind of a link, as stored in the dialog's list, the setting, the script parameter and the helper's
// message. Values from outside may be any number; no link is created for those without a name.
enum LinkKind : Velmora::SDK::s32 {
  kHardLink = 1,
  kJunction = 2,
  kSymbolicLink = 3,
  kShortcut = 4,
};

// Creates the link `link` to `target`, which is a folder if `isFolder`. Logs the result if `host` is not
// null; in the elevated helper it may be null. Returns 0, ERROR_INVALID_DATA (13) for a junction that cannot
// be created and for an unknown kind, ERROR_PATH_NOT_FOUND (3) for a shortcut that cannot be created, or the
// system's error (C-407).
DWORD CreateLinkOfKind(Velmora::SDK::IHostApp* host, LinkKind kind, const WString& link,
                       const WString& target, bool isFolder);

// Creates a link by way of the elevated helper (service 3250), and logs the result in this process too.
// Returns ERROR_ACCESS_DENIED (5), without logging, if the helper cannot be reached.
DWORD CreateLinkElevated(Velmora::SDK::IHostApp& host, LinkKind kind, const WString& link,
                         const WString& target, bool isFolder);

// Creates a link with CreateLinkOfKind. If that fails for lack of rights, tries it by way of the helper,
// unless the process is elevated or the system has no helper. Logs both attempts (C-412). Shows the final
// error, if any, in a box and returns it.
DWORD CreateLinkWithRetry(Velmora::SDK::IHostApp& host, LinkKind kind, const WString& link,
                          const WString& target, bool isFolder);
