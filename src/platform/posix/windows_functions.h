// The Windows functions that the product uses, implemented over POSIX and ICU.
//
// Each behaves as the function of that name on Windows does: results, error numbers (GetLastError), limits.
// What differs is said here.
//
// Paths: `Z:\a\b` and `\a\b` are /a/b, `\\?\` is taken off, `/a/b` is accepted, a relative path begins at the
// current folder. Other drives fail with ERROR_PATH_NOT_FOUND (3), `\\server\share` and `\\?\UNC\` with
// ERROR_BAD_NETPATH (53). Names are UTF-8 on disk; a name that is no UTF-8 shows its stray bytes as the low
// surrogates U+DC80..U+DCFF and is found again by them, and a backslash in a name is U+DC5C. File names are
// case-sensitive; masks are not, and "?" is one character, never none.
// A read-only file is one without write permission for its owner, and is read-only for the superuser too.
// Share modes hold between the handles of the process: an open, a move or a delete that an open handle's
// share mode excludes fails with ERROR_SHARING_VIOLATION (32).
//
// All functions may be called from any thread; the last error is the thread's own.
#pragma once

#include <ctime>

#include "platform/posix/windows_types.h"

#define QX_PLATFORM_API __attribute__((visibility("default")))

// Errors.
QX_PLATFORM_API DWORD GetLastError();
QX_PLATFORM_API void SetLastError(DWORD error);
// The texts are Windows' own English ones, each with its line ending, for the errors that the system can
// meet; any other number fails with ERROR_MR_MID_NOT_FOUND (317). The source is not looked at: there are no
// message tables of modules here.
QX_PLATFORM_API DWORD FormatMessageW(DWORD flags, const void* source, DWORD messageId, DWORD languageId,
                                     WCHAR* buffer, DWORD size, void* arguments);
QX_PLATFORM_API HLOCAL LocalFree(HLOCAL memory);

// Files. A folder is opened with FILE_FLAG_BACKUP_SEMANTICS alone, and a link as itself, not as its target,
// with FILE_FLAG_OPEN_REPARSE_POINT beside that; neither can be read or written.
QX_PLATFORM_API HANDLE CreateFileW(const WCHAR* path, DWORD access, DWORD shareMode,
                                   SECURITY_ATTRIBUTES* security, DWORD creation, DWORD flagsAndAttributes,
                                   HANDLE templateFile);
QX_PLATFORM_API BOOL ReadFile(HANDLE file, void* buffer, DWORD count, DWORD* done, OVERLAPPED* overlapped);
QX_PLATFORM_API BOOL WriteFile(HANDLE file, const void* buffer, DWORD count, DWORD* done,
                               OVERLAPPED* overlapped);
QX_PLATFORM_API DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD method);
QX_PLATFORM_API BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
// Stores the volume and the index, which no two files share; the rest is zero.
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

// Links. A hard link is made to a file alone; a symbolic link as on disk, from the target's text, and for a
// target that is not there too: the flag SYMBOLIC_LINK_FLAG_DIRECTORY counts for nothing, since what a link
// leads to tells what it is. Other flags are passed over.
QX_PLATFORM_API BOOL CreateHardLinkW(const WCHAR* link, const WCHAR* target, SECURITY_ATTRIBUTES* security);
QX_PLATFORM_API BOOLEAN CreateSymbolicLinkW(const WCHAR* link, const WCHAR* target, DWORD flags);
// FSCTL_SET_REPARSE_POINT with the record of a mount point, on the handle of an empty folder or of a
// junction: it becomes a junction, which is a symbolic link to the path of the record with a slash at its
// end. A symbolic link without one is none (ERROR_REPARSE_TAG_MISMATCH, 4394). The path must be of the form
// `\??\Z:\a`, and need not be there; another record fails with ERROR_INVALID_REPARSE_DATA (4392), another tag
// with ERROR_REPARSE_TAG_INVALID (4393), another code with ERROR_INVALID_FUNCTION (1).
QX_PLATFORM_API BOOL DeviceIoControl(HANDLE file, DWORD code, void* input, DWORD inputSize, void* output,
                                     DWORD outputSize, DWORD* returned, OVERLAPPED* overlapped);
// False for what is no folder, and for a path of more than MAX_PATH characters.
QX_PLATFORM_API BOOL PathIsDirectoryEmptyW(const WCHAR* path);

// Search. "." and ".." come first; the other entries come as the file system gives them.
QX_PLATFORM_API HANDLE FindFirstFileExW(const WCHAR* mask, FINDEX_INFO_LEVELS level, void* findData,
                                        FINDEX_SEARCH_OPS search, void* filter, DWORD flags);
QX_PLATFORM_API BOOL FindNextFileW(HANDLE search, WIN32_FIND_DATAW* findData);
QX_PLATFORM_API BOOL FindClose(HANDLE search);

// Text. Only LOCALE_INVARIANT with one of LCMAP_UPPERCASE and LCMAP_LOWERCASE, one character to one
// character; source and target may be the same buffer. The code page of CP_ACP and CP_THREAD_ACP is 1252.
QX_PLATFORM_API int LCMapStringW(LCID locale, DWORD flags, const WCHAR* source, int sourceSize, WCHAR* target,
                                 int targetSize);
QX_PLATFORM_API int MultiByteToWideChar(UINT codePage, DWORD flags, const char* source, int sourceSize,
                                        WCHAR* target, int targetSize);
QX_PLATFORM_API int WideCharToMultiByte(UINT codePage, DWORD flags, const WCHAR* source, int sourceSize,
                                        char* target, int targetSize, const char* defaultChar,
                                        BOOL* usedDefaultChar);

// Order of texts in the user's language, which is American English where the environment names none. The
// locale is LOCALE_USER_DEFAULT or null; the flags are any of NORM_LINGUISTIC_CASING, LINGUISTIC_IGNORECASE
// and SORT_DIGITSASNUMBERS. A negative count is a text to its zero. The texts may stand at odd addresses.
// Nothing is allocated for a text that is no longer than those before it. Symbols come before digits, digits
// before letters; control characters count for nothing. Other than on Windows the hyphen and the apostrophe
// are symbols like all, and the symbols among themselves stand in ICU's order.
QX_PLATFORM_API int CompareStringA(LCID locale, DWORD flags, const char* lhs, int lhsCount, const char* rhs,
                                   int rhsCount);
QX_PLATFORM_API int CompareStringW(LCID locale, DWORD flags, const WCHAR* lhs, int lhsCount, const WCHAR* rhs,
                                   int rhsCount);
QX_PLATFORM_API int CompareStringEx(const WCHAR* localeName, DWORD flags, const WCHAR* lhs, int lhsCount,
                                    const WCHAR* rhs, int rhsCount, NLSVERSIONINFO* version, LPVOID reserved,
                                    LPARAM parameter);
// By the numbers of the 16-bit units, upper cased if case is ignored. -1 is the only count below 0.
QX_PLATFORM_API int CompareStringOrdinal(const WCHAR* lhs, int lhsCount, const WCHAR* rhs, int rhsCount,
                                         BOOL ignoreCase);

// Local time, in the zone that the process began with. The limits are 1970-01-01 00:00:00 and 3000-12-31
// 23:59:59 in universal time: -1 is the answer for all beyond, whatever the fields hold, and leaves them
// alone.
QX_PLATFORM_API std::int64_t _mktime64(std::tm* time);

// Dates and times. Fields that are no date or time fail with ERROR_INVALID_PARAMETER (87); the day of the
// week is not looked at and counted from the date where it is needed.
QX_PLATFORM_API void GetLocalTime(SYSTEMTIME* time);
QX_PLATFORM_API BOOL FileTimeToSystemTime(const FILETIME* fileTime, SYSTEMTIME* time);
QX_PLATFORM_API BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* fileTime);
// The locale is the user's, with ICU's names and formats, whatever is given; the formats are Windows' own
// pictures ("ddd, d. MMMM yyyy", "h:mm:ss tt"), and the flags are not looked at. GetLocaleInfoW knows
// LOCALE_SSHORTDATE and LOCALE_STIMEFORMAT; others fail with ERROR_INVALID_FLAGS (1004).
QX_PLATFORM_API int GetLocaleInfoW(LCID locale, DWORD item, WCHAR* buffer, int size);
QX_PLATFORM_API int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* date, const WCHAR* format,
                                   WCHAR* buffer, int size);
QX_PLATFORM_API int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, const WCHAR* format,
                                   WCHAR* buffer, int size);

// Threads and events, closed with CloseHandle. A thread ends by returning; one that was made with
// CREATE_SUSPENDED begins at its ResumeThread. Its exit code is not kept. WaitForSingleObject waits for a
// thread's end or for an event. Events have no names.
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
// Gives up the rest of the thread's time. Returns whether another thread was ready, as far as is known.
QX_PLATFORM_API BOOL SwitchToThread();

// Messages. A thread has a queue from its first PeekMessageW, GetMessageW, PostQuitMessage or window on; to
// post to one without fails with ERROR_INVALID_THREAD_ID (1444). The windows are those of
// platform/message_window.h: any other handle, and one whose thread has ended, fails with
// ERROR_INVALID_WINDOW_HANDLE (1400). A filter by the numbers of messages fails with ERROR_INVALID_PARAMETER
// (87). There is no keyboard: TranslateMessage does nothing.
QX_PLATFORM_API BOOL PostMessageW(HWND window, UINT message, WPARAM first, LPARAM second);
QX_PLATFORM_API BOOL PostThreadMessageW(DWORD thread, UINT message, WPARAM first, LPARAM second);
QX_PLATFORM_API void PostQuitMessage(int exitCode);
QX_PLATFORM_API BOOL GetMessageW(MSG* message, HWND window, UINT least, UINT most);
QX_PLATFORM_API BOOL PeekMessageW(MSG* message, HWND window, UINT least, UINT most, UINT flags);
QX_PLATFORM_API BOOL TranslateMessage(const MSG* message);
QX_PLATFORM_API LRESULT DispatchMessageW(const MSG* message);

// Libraries, named in any case, with ".dll" or without. There are "kernel32.dll" with CompareStringEx,
// CompareStringOrdinal and CreateSymbolicLinkW, and "netmsg.dll", the library of Windows' network messages,
// which holds nothing: its texts stand among the system's. "ntdll.dll" with NtQueryInformationFile is in the
// process from its beginning. Any other fails with ERROR_MOD_NOT_FOUND (126). A
// library that has been freed as often as it was loaded is a bad handle.
QX_PLATFORM_API HMODULE LoadLibraryW(const WCHAR* path);
QX_PLATFORM_API HMODULE LoadLibraryExW(const WCHAR* path, HANDLE file, DWORD flags);
// A library that is in the process already; its loads are not counted up.
QX_PLATFORM_API HMODULE GetModuleHandleW(const WCHAR* name);
// The library, or the program, whose code or data an address is of. `flags` must have
// GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS; with GET_MODULE_HANDLE_EX_FLAG_PIN it stays loaded until the
// process ends. Its loads are not counted up without that.
QX_PLATFORM_API BOOL GetModuleHandleExW(DWORD flags, const WCHAR* address, HMODULE* module);
QX_PLATFORM_API FARPROC GetProcAddress(HMODULE module, const char* function);
QX_PLATFORM_API BOOL FreeLibrary(HMODULE module);

// User interface: handed to the handler of platform/posix/user_interface.h. Without one, MessageBoxW fails
// (0) and ShellExecuteW answers SE_ERR_NOASSOC (31).
QX_PLATFORM_API int MessageBoxW(HWND owner, const WCHAR* text, const WCHAR* caption, UINT style);
QX_PLATFORM_API HINSTANCE ShellExecuteW(HWND owner, const WCHAR* verb, const WCHAR* file,
                                        const WCHAR* arguments, const WCHAR* folder, int show);
