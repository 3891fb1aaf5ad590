// The Windows functions that the product uses, implemented over POSIX and ICU.
//
// Each behaves as the Windows function of that name: results, error numbers (GetLastError), limits. The
// comments below document only the differences.
//
// Paths: `Z:\a\b` and `\a\b` are /a/b, a prefix `\\?\` is removed, `/a/b` is accepted, a relative path is
// relative to the current folder. Other drives fail with ERROR_PATH_NOT_FOUND (3), `\\server\share` and
// `\\?\UNC\` with ERROR_BAD_NETPATH (53). Names are UTF-8 on disk; in a name that is not valid UTF-8, each
// invalid byte appears as one of the low surrogates U+DC80..U+DCFF, and a backslash as U+DC5C, and these are
// converted back when the name is used. File names are case-sensitive; masks are not, and "?" matches exactly
// one character. A file is read-only if its owner has no write permission; this applies to the superuser too.
// Share modes apply between the handles of the process: an open, a move or a delete that the share mode of an
// open handle excludes fails with ERROR_SHARING_VIOLATION (32).
//
// All functions may be called from any thread. Each thread has its own last error.
#pragma once

#include <ctime>

#include "platform/posix/windows_types.h"

#define QX_PLATFORM_API __attribute__((visibility("default")))

// Errors.
QX_PLATFORM_API DWORD GetLastError();
QX_PLATFORM_API void SetLastError(DWORD error);
// Knows the English texts of the errors that can occur here, each with its line ending; any other number
// fails with ERROR_MR_MID_NOT_FOUND (317). `source` is ignored: modules have no message tables.
QX_PLATFORM_API DWORD FormatMessageW(DWORD flags, const void* source, DWORD messageId, DWORD languageId,
                                     WCHAR* buffer, DWORD size, void* arguments);
QX_PLATFORM_API HLOCAL LocalFree(HLOCAL memory);

// Files. CreateFileW opens a folder only with FILE_FLAG_BACKUP_SEMANTICS, and a link itself, not its target,
// only with FILE_FLAG_OPEN_REPARSE_POINT as well; such a handle cannot be read or written.
QX_PLATFORM_API HANDLE CreateFileW(const WCHAR* path, DWORD access, DWORD shareMode,
                                   SECURITY_ATTRIBUTES* security, DWORD creation, DWORD flagsAndAttributes,
                                   HANDLE templateFile);
QX_PLATFORM_API BOOL ReadFile(HANDLE file, void* buffer, DWORD count, DWORD* done, OVERLAPPED* overlapped);
QX_PLATFORM_API BOOL WriteFile(HANDLE file, const void* buffer, DWORD count, DWORD* done,
                               OVERLAPPED* overlapped);
QX_PLATFORM_API DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD method);
QX_PLATFORM_API BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
// Stores the volume serial number and the file index, which together identify a file; all other fields are
// zero.
QX_PLATFORM_API BOOL GetFileInformationByHandle(HANDLE file, BY_HANDLE_FILE_INFORMATION* information);
QX_PLATFORM_API BOOL CloseHandle(HANDLE handle);
QX_PLATFORM_API BOOL MoveFileW(const WCHAR* from, const WCHAR* to);
QX_PLATFORM_API BOOL DeleteFileW(const WCHAR* path);

// Attributes, folders, full paths.
QX_PLATFORM_API DWORD GetFileAttributesW(const WCHAR* path);
QX_PLATFORM_API BOOL SetFileAttributesW(const WCHAR* path, DWORD attributes);
QX_PLATFORM_API BOOL CreateDirectoryW(const WCHAR* path, SECURITY_ATTRIBUTES* security);
QX_PLATFORM_API BOOL RemoveDirectoryW(const WCHAR* path);
// The full path has the form `Z:\a\b`.
QX_PLATFORM_API DWORD GetFullPathNameW(const WCHAR* path, DWORD size, WCHAR* buffer, WCHAR** filePart);

// Links. A hard link can only be made to a file. A symbolic link stores the target's text; the target need
// not exist. All flags are ignored, SYMBOLIC_LINK_FLAG_DIRECTORY included: the type of a link is that of its
// target.
QX_PLATFORM_API BOOL CreateHardLinkW(const WCHAR* link, const WCHAR* target, SECURITY_ATTRIBUTES* security);
QX_PLATFORM_API BOOLEAN CreateSymbolicLinkW(const WCHAR* link, const WCHAR* target, DWORD flags);
// Supports FSCTL_SET_REPARSE_POINT with the record of a mount point, on the handle of an empty folder or of a
// junction, which becomes a junction: a symbolic link to the path in the record, with a slash appended. A
// symbolic link without that slash is not a junction (ERROR_REPARSE_TAG_MISMATCH, 4394). The path must have
// the form `\??\Z:\a` and need not exist; another record fails with ERROR_INVALID_REPARSE_DATA (4392),
// another tag with ERROR_REPARSE_TAG_INVALID (4393), another code with ERROR_INVALID_FUNCTION (1).
QX_PLATFORM_API BOOL DeviceIoControl(HANDLE file, DWORD code, void* input, DWORD inputSize, void* output,
                                     DWORD outputSize, DWORD* returned, OVERLAPPED* overlapped);
// Returns FALSE if the path is not a folder, or has more than MAX_PATH characters.
QX_PLATFORM_API BOOL PathIsDirectoryEmptyW(const WCHAR* path);

// Search. Returns "." and ".." first, then the other entries in the order of the file system.
QX_PLATFORM_API HANDLE FindFirstFileExW(const WCHAR* mask, FINDEX_INFO_LEVELS level, void* findData,
                                        FINDEX_SEARCH_OPS search, void* filter, DWORD flags);
QX_PLATFORM_API BOOL FindNextFileW(HANDLE search, WIN32_FIND_DATAW* findData);
QX_PLATFORM_API BOOL FindClose(HANDLE search);

// Text. LCMapStringW supports only LOCALE_INVARIANT with one of LCMAP_UPPERCASE and LCMAP_LOWERCASE, and maps
// each unit to one unit; source and target may be the same buffer. CP_ACP and CP_THREAD_ACP mean the code
// page 1252.
QX_PLATFORM_API int LCMapStringW(LCID locale, DWORD flags, const WCHAR* source, int sourceSize, WCHAR* target,
                                 int targetSize);
QX_PLATFORM_API int MultiByteToWideChar(UINT codePage, DWORD flags, const char* source, int sourceSize,
                                        WCHAR* target, int targetSize);
QX_PLATFORM_API int WideCharToMultiByte(UINT codePage, DWORD flags, const WCHAR* source, int sourceSize,
                                        char* target, int targetSize, const char* defaultChar,
                                        BOOL* usedDefaultChar);

// Order of texts in the user's language; American English if the environment names no language. The locale is
// LOCALE_USER_DEFAULT or null; the flags are any of NORM_LINGUISTIC_CASING, LINGUISTIC_IGNORECASE and
// SORT_DIGITSASNUMBERS. A negative count means a zero-terminated text. The texts need not be aligned. No
// memory is allocated for a text that is not longer than the texts compared before. Symbols come before
// digits, digits before letters; control characters are ignored. Unlike on Windows, the hyphen and the
// apostrophe are ordinary symbols, and symbols compare in ICU's order.
QX_PLATFORM_API int CompareStringA(LCID locale, DWORD flags, const char* lhs, int lhsCount, const char* rhs,
                                   int rhsCount);
QX_PLATFORM_API int CompareStringW(LCID locale, DWORD flags, const WCHAR* lhs, int lhsCount, const WCHAR* rhs,
                                   int rhsCount);
QX_PLATFORM_API int CompareStringEx(const WCHAR* localeName, DWORD flags, const WCHAR* lhs, int lhsCount,
                                    const WCHAR* rhs, int rhsCount, NLSVERSIONINFO* version, LPVOID reserved,
                                    LPARAM parameter);
// Compares the numbers of the 16-bit units, of their upper case if case is ignored. -1, for a zero-terminated
// text, is the only negative count that is accepted.
QX_PLATFORM_API int CompareStringOrdinal(const WCHAR* lhs, int lhsCount, const WCHAR* rhs, int rhsCount,
                                         BOOL ignoreCase);

// Converts local time, in the time zone that the process started with. Returns -1 and leaves the fields
// unchanged for times outside 1970-01-01 00:00:00 to 3000-12-31 23:59:59 UTC.
QX_PLATFORM_API std::int64_t _mktime64(std::tm* time);

// Dates and times. Fields that are not a valid date or time fail with ERROR_INVALID_PARAMETER (87). The day
// of the week is ignored on input and computed from the date.
QX_PLATFORM_API void GetLocalTime(SYSTEMTIME* time);
QX_PLATFORM_API BOOL FileTimeToSystemTime(const FILETIME* fileTime, SYSTEMTIME* time);
QX_PLATFORM_API BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* fileTime);
// The locale is always the user's, with ICU's names and formats; the locale argument and the flags are
// ignored. The formats are Windows format pictures ("ddd, d. MMMM yyyy", "h:mm:ss tt"). GetLocaleInfoW
// supports LOCALE_SSHORTDATE and LOCALE_STIMEFORMAT; others fail with ERROR_INVALID_FLAGS (1004).
QX_PLATFORM_API int GetLocaleInfoW(LCID locale, DWORD item, WCHAR* buffer, int size);
QX_PLATFORM_API int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* date, const WCHAR* format,
                                   WCHAR* buffer, int size);
QX_PLATFORM_API int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, const WCHAR* format,
                                   WCHAR* buffer, int size);

// Threads and events, closed with CloseHandle. A thread ends by returning; its exit code is not kept. One
// that was created with CREATE_SUSPENDED starts when ResumeThread is called. WaitForSingleObject waits for
// the end of a thread or for an event. Events have no names.
QX_PLATFORM_API HANDLE CreateThread(SECURITY_ATTRIBUTES* security, std::size_t stackSize,
                                    LPTHREAD_START_ROUTINE start, LPVOID parameter, DWORD flags,
                                    DWORD* number);
QX_PLATFORM_API DWORD ResumeThread(HANDLE thread);
QX_PLATFORM_API HANDLE CreateEventW(SECURITY_ATTRIBUTES* security, BOOL manualReset, BOOL isSet,
                                    const WCHAR* name);
QX_PLATFORM_API BOOL SetEvent(HANDLE event);
QX_PLATFORM_API BOOL ResetEvent(HANDLE event);
QX_PLATFORM_API DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds);
QX_PLATFORM_API void Sleep(DWORD milliseconds);
QX_PLATFORM_API DWORD GetCurrentThreadId();
// Yields the rest of the thread's time slice. Always returns TRUE: whether another thread was ready to run is
// not known.
QX_PLATFORM_API BOOL SwitchToThread();

// Messages. A thread gets a queue when it first calls PeekMessageW, GetMessageW or PostQuitMessage or creates
// a window; posting to a thread without a queue fails with ERROR_INVALID_THREAD_ID (1444). The only windows
// are those of platform/message_window.h: any other handle, and that of a window whose thread has ended,
// fails with ERROR_INVALID_WINDOW_HANDLE (1400). Filtering by message numbers fails with
// ERROR_INVALID_PARAMETER (87). There is no keyboard: TranslateMessage does nothing.
QX_PLATFORM_API BOOL PostMessageW(HWND window, UINT message, WPARAM first, LPARAM second);
QX_PLATFORM_API BOOL PostThreadMessageW(DWORD thread, UINT message, WPARAM first, LPARAM second);
QX_PLATFORM_API void PostQuitMessage(int exitCode);
QX_PLATFORM_API BOOL GetMessageW(MSG* message, HWND window, UINT least, UINT most);
QX_PLATFORM_API BOOL PeekMessageW(MSG* message, HWND window, UINT least, UINT most, UINT flags);
QX_PLATFORM_API BOOL TranslateMessage(const MSG* message);
QX_PLATFORM_API LRESULT DispatchMessageW(const MSG* message);

// Libraries. Names are case-insensitive, and ".dll" may be omitted. Three libraries exist: "kernel32.dll"
// with CompareStringEx, CompareStringOrdinal and CreateSymbolicLinkW; "netmsg.dll", which is empty, as
// FormatMessageW has the texts of network errors among the system's; and "ntdll.dll" with
// NtQueryInformationFile, which is loaded from the start. Any other name fails with ERROR_MOD_NOT_FOUND
// (126). The handle of a library becomes invalid when the library has been freed as often as it was loaded.
QX_PLATFORM_API HMODULE LoadLibraryW(const WCHAR* path);
QX_PLATFORM_API HMODULE LoadLibraryExW(const WCHAR* path, HANDLE file, DWORD flags);
// Finds a library that is already loaded, without increasing its load count.
QX_PLATFORM_API HMODULE GetModuleHandleW(const WCHAR* name);
// The library, or the program, whose code or data an address is of. `flags` must have
// GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS; with GET_MODULE_HANDLE_EX_FLAG_PIN it stays loaded until the
// process ends. Its loads are not counted up without that.
QX_PLATFORM_API BOOL GetModuleHandleExW(DWORD flags, const WCHAR* address, HMODULE* module);
QX_PLATFORM_API FARPROC GetProcAddress(HMODULE module, const char* function);
QX_PLATFORM_API BOOL FreeLibrary(HMODULE module);

// User interface, passed to the handler of platform/posix/user_interface.h. If none is installed, MessageBoxW
// fails (0) and ShellExecuteW returns SE_ERR_NOASSOC (31).
QX_PLATFORM_API int MessageBoxW(HWND owner, const WCHAR* text, const WCHAR* caption, UINT style);
QX_PLATFORM_API HINSTANCE ShellExecuteW(HWND owner, const WCHAR* verb, const WCHAR* file,
                                        const WCHAR* arguments, const WCHAR* folder, int show);
