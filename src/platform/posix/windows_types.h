// The Windows types and constants that the product uses, with the sizes and values that Windows gives them.
#pragma once

#include <cstddef>
#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using BOOLEAN = BYTE;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using LONGLONG = std::int64_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using WPARAM = std::uintptr_t;
using WCHAR = char16_t;
using LCID = DWORD;
using LPVOID = void*;

using HANDLE = void*;
using HLOCAL = void*;
struct HWND__;
using HWND = HWND__*;
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;
using FARPROC = INT_PTR (*)();

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

union LARGE_INTEGER {
  struct {
    DWORD LowPart;
    LONG HighPart;
  } u;
  LONGLONG QuadPart;
};

struct FILETIME {
  DWORD dwLowDateTime;
  DWORD dwHighDateTime;
};

struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;  // 1 to 12
  WORD wDayOfWeek;
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};

struct POINT {
  LONG x;
  LONG y;
};

// A message of a thread's queue. `time` and `pt` are always zero.
struct tagMSG {
  HWND hwnd;  // null for a message of the thread itself
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};
using MSG = tagMSG;
static_assert(sizeof(MSG) == 48);

using LPTHREAD_START_ROUTINE = DWORD (*)(LPVOID parameter);

struct WIN32_FIND_DATAW {
  DWORD dwFileAttributes;
  FILETIME ftCreationTime;
  FILETIME ftLastAccessTime;
  FILETIME ftLastWriteTime;
  DWORD nFileSizeHigh;
  DWORD nFileSizeLow;
  DWORD dwReserved0;
  DWORD dwReserved1;
  WCHAR cFileName[MAX_PATH];
  WCHAR cAlternateFileName[14];
};
static_assert(sizeof(WIN32_FIND_DATAW) == 592);

struct BY_HANDLE_FILE_INFORMATION {
  DWORD dwFileAttributes;
  FILETIME ftCreationTime;
  FILETIME ftLastAccessTime;
  FILETIME ftLastWriteTime;
  DWORD dwVolumeSerialNumber;
  DWORD nFileSizeHigh;
  DWORD nFileSizeLow;
  DWORD nNumberOfLinks;
  DWORD nFileIndexHigh;
  DWORD nFileIndexLow;
};
static_assert(sizeof(BY_HANDLE_FILE_INFORMATION) == 52);

enum FINDEX_INFO_LEVELS { FindExInfoStandard, FindExInfoBasic, FindExInfoMaxInfoLevel };
enum FINDEX_SEARCH_OPS { FindExSearchNameMatch, FindExSearchLimitToDirectories, FindExSearchMaxSearchOp };

// Incomplete: the product always passes null.
struct SECURITY_ATTRIBUTES;
struct OVERLAPPED;
struct NLSVERSIONINFO;

// File access, sharing, creation.
constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;
constexpr DWORD FILE_SHARE_DELETE = 4;
constexpr DWORD CREATE_NEW = 1;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD OPEN_ALWAYS = 4;
constexpr DWORD TRUNCATE_EXISTING = 5;
constexpr DWORD FILE_BEGIN = 0;
constexpr DWORD FILE_CURRENT = 1;
constexpr DWORD FILE_END = 2;
constexpr DWORD INVALID_SET_FILE_POINTER = 0xFFFFFFFF;

// File attributes.
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x1;
constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x2;
constexpr DWORD FILE_ATTRIBUTE_SYSTEM = 0x4;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x20;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD FILE_ATTRIBUTE_REPARSE_POINT = 0x400;
constexpr DWORD FIND_FIRST_EX_LARGE_FETCH = 2;

// Links.
constexpr DWORD FILE_FLAG_BACKUP_SEMANTICS = 0x02000000;
constexpr DWORD FILE_FLAG_OPEN_REPARSE_POINT = 0x00200000;
constexpr DWORD FSCTL_SET_REPARSE_POINT = 0x000900A4;
constexpr DWORD IO_REPARSE_TAG_MOUNT_POINT = 0xA0000003;
constexpr DWORD SYMBOLIC_LINK_FLAG_DIRECTORY = 1;

// Error numbers.
constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_INVALID_FUNCTION = 1;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_BAD_FORMAT = 11;
constexpr DWORD ERROR_INVALID_DATA = 13;
constexpr DWORD ERROR_OUTOFMEMORY = 14;
constexpr DWORD ERROR_NOT_SAME_DEVICE = 17;
constexpr DWORD ERROR_NO_MORE_FILES = 18;
constexpr DWORD ERROR_WRITE_PROTECT = 19;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_HANDLE_EOF = 38;
constexpr DWORD ERROR_HANDLE_DISK_FULL = 39;
constexpr DWORD ERROR_BAD_NETPATH = 53;
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_BROKEN_PIPE = 109;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_INVALID_NAME = 123;
constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
constexpr DWORD ERROR_NEGATIVE_SEEK = 131;
constexpr DWORD ERROR_DIR_NOT_EMPTY = 145;
constexpr DWORD ERROR_BAD_PATHNAME = 161;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;
constexpr DWORD ERROR_FILENAME_EXCED_RANGE = 206;
constexpr DWORD ERROR_DIRECTORY = 267;
constexpr DWORD ERROR_MR_MID_NOT_FOUND = 317;
constexpr DWORD ERROR_INVALID_FLAGS = 1004;
constexpr DWORD ERROR_NO_UNICODE_TRANSLATION = 1113;
constexpr DWORD ERROR_IO_DEVICE = 1117;
constexpr DWORD ERROR_CANCELLED = 1223;
constexpr DWORD ERROR_PRIVILEGE_NOT_HELD = 1314;
constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
constexpr DWORD ERROR_INVALID_THREAD_ID = 1444;
constexpr DWORD ERROR_TIMEOUT = 1460;
constexpr DWORD ERROR_UNSUPPORTED_TYPE = 1630;
constexpr DWORD ERROR_INVALID_REPARSE_DATA = 4392;
constexpr DWORD ERROR_REPARSE_TAG_INVALID = 4393;
constexpr DWORD ERROR_REPARSE_TAG_MISMATCH = 4394;

// Error texts and libraries.
constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x100;
constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_PIN = 1;
constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS = 4;
constexpr DWORD FORMAT_MESSAGE_FROM_HMODULE = 0x800;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;
constexpr DWORD LOAD_LIBRARY_AS_DATAFILE = 2;

// Letter case and code pages.
constexpr LCID LOCALE_INVARIANT = 127;
constexpr DWORD LCMAP_LOWERCASE = 0x100;
constexpr DWORD LCMAP_UPPERCASE = 0x200;
constexpr UINT CP_ACP = 0;
constexpr UINT CP_THREAD_ACP = 3;
constexpr UINT CP_UTF8 = 65001;
constexpr DWORD MB_ERR_INVALID_CHARS = 8;

// Order of texts.
constexpr LCID LOCALE_USER_DEFAULT = 0x400;
constexpr DWORD SORT_DIGITSASNUMBERS = 0x8;
constexpr DWORD LINGUISTIC_IGNORECASE = 0x10;
constexpr DWORD NORM_LINGUISTIC_CASING = 0x08000000;
constexpr int CSTR_LESS_THAN = 1;
constexpr int CSTR_EQUAL = 2;
constexpr int CSTR_GREATER_THAN = 3;

// Dates and times.
constexpr DWORD LOCALE_SSHORTDATE = 31;
constexpr DWORD LOCALE_STIMEFORMAT = 4099;

// Threads and waits.
constexpr DWORD CREATE_SUSPENDED = 4;
constexpr DWORD INFINITE = 0xFFFFFFFF;
constexpr DWORD WAIT_OBJECT_0 = 0;
constexpr DWORD WAIT_TIMEOUT = 258;
constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;

// Boxes and windows.
constexpr UINT MB_OK = 0x0;
constexpr UINT MB_OKCANCEL = 0x1;
constexpr UINT MB_YESNOCANCEL = 0x3;
constexpr UINT MB_YESNO = 0x4;
constexpr UINT MB_ICONERROR = 0x10;
constexpr UINT MB_ICONQUESTION = 0x20;
constexpr UINT MB_ICONINFORMATION = 0x40;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;
constexpr int SW_SHOW = 5;

// Messages.
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_NCMOUSEMOVE = 0x00A0;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_APP = 0x8000;
constexpr UINT PM_NOREMOVE = 0;
constexpr UINT PM_REMOVE = 1;
