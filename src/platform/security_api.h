// Declares the Windows functions for owners, access lists, privileges and streams that the product calls,
// under their own names. Few files need them, so platform/windows_api.h leaves them out.
//
// On Windows this includes the system's headers, elsewhere platform/posix/security/security_functions.h.
#pragma once

#include "platform/windows_api.h"

#ifdef _WIN32

#ifndef SECURITY_WIN32
#define SECURITY_WIN32
#endif
#include <aclapi.h>
#include <security.h>
#include <winnetwk.h>
#include <winternl.h>

#else

#include "platform/posix/security/security_functions.h"

#endif

// The type of NtQueryInformationFile, which is looked up at run time.
using NtQueryInformationFileFunction = NTSTATUS(NTAPI*)(HANDLE file, IO_STATUS_BLOCK* status, void* buffer,
                                                        ULONG size, int informationClass);
constexpr int kFileStreamInformation = 22;
