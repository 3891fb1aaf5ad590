// The Windows functions of owners, access lists, privileges and streams, by their own names, for the few
// files that use them.
//
// On Windows these are the system's headers. Elsewhere platform/posix/security/security_functions.h declares
// exactly what the product calls.
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

// NtQueryInformationFile, which is looked up while the program runs.
using NtQueryInformationFileFunction = NTSTATUS(NTAPI*)(HANDLE file, IO_STATUS_BLOCK* status, void* buffer,
                                                        ULONG size, int informationClass);
constexpr int kFileStreamInformation = 22;
