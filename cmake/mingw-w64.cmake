# 64-bit Windows: clang and LLVM's linker over the headers, the C runtime and the C++ library (POSIX threads) of
# Debian's mingw-w64. GNU's compiler, assembler, archiver and linker take several times as long over COFF objects, which
# hold a section for each inline function.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
find_program(CMAKE_AR llvm-ar REQUIRED)
find_program(CMAKE_RANLIB llvm-ranlib REQUIRED)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Where GNU's compiler keeps the C++ library of these threads; clang does not look there by itself.
execute_process(COMMAND x86_64-w64-mingw32-g++-posix -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_library OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc_folder ${gcc_library} DIRECTORY)
# Thread-local variables are reached as that library reaches its own, by calls; and as in that library, the comparison
# of std::type_info is no inline function: LLVM's linker takes an inline and an ordinary definition for duplicates.
string(CONCAT CMAKE_CXX_FLAGS_INIT
  "-femulated-tls -D__GXX_TYPEINFO_EQUALITY_INLINE=0 -isystem ${gcc_folder}/include/c++ "
  "-isystem ${gcc_folder}/include/c++/x86_64-w64-mingw32 -isystem ${gcc_folder}/include/c++/backward")
foreach(kind EXE SHARED)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-fuse-ld=lld -pthread -L${gcc_folder} -B${gcc_folder}")
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
