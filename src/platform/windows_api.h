// Declares the Windows functions, types and constants that the product uses, under their own names.
//
// On Windows this includes <windows.h> and related headers. Elsewhere platform/posix/ declares exactly what
// the product calls and implements it over POSIX and ICU, with Windows' error numbers. Code outside platform/
// includes this header and does not test which system it is built for.
#pragma once

#ifdef _WIN32

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
// <windows.h> comes first: the other headers need it.
#include <windows.h>

#include <shellapi.h>
#include <time.h>
#include <winioctl.h>

// Declared here instead of including <shlwapi.h>, which would bring names such as `byte` into every file.
extern "C" __declspec(dllimport) BOOL __stdcall PathIsDirectoryEmptyW(LPCWSTR path);

// <windows.h> defines these as macros. They are also the names of an operation of IHostApp and of a save mode
// of find and replace. The product calls MessageBoxW by its full name and does not call ReplaceFileW.
#undef MessageBox
#undef ReplaceFile

#else

#include "platform/posix/windows_functions.h"

#endif
