// The Windows functions, types and constants that the product uses, by their own names.
//
// On Windows this is <windows.h> and its kin. Elsewhere platform/posix/ declares exactly what the product
// calls and implements it over POSIX and ICU, with Windows' error numbers. Code above platform/ includes
// this header and never asks which system it is built for.
#pragma once

#ifdef _WIN32

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
// <windows.h> comes first: the others build on it.
#include <windows.h>

#include <shellapi.h>
#include <time.h>
#include <winioctl.h>

// Of <shlwapi.h>, which brings names such as `byte` into every file.
extern "C" __declspec(dllimport) BOOL __stdcall PathIsDirectoryEmptyW(LPCWSTR path);

// IHostApp has an operation and a save mode of find and replace has a flag of these names; the product calls
// MessageBoxW by its full name, and ReplaceFileW not at all.
#undef MessageBox
#undef ReplaceFile

#else

#include "platform/posix/windows_functions.h"

#endif
