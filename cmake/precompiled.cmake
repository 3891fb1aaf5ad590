# Precompiled headers. Reading the headers of the libraries takes longer than compiling most sources, so each kind of
# target reads them once. They only save time: every source includes what it uses, and QX_PCH=OFF builds without.
option(QX_PCH "Read the headers of libraries precompiled" ON)

set(QX_STANDARD_HEADERS
  <algorithm> <array> <cstdint> <cstring> <deque> <functional> <limits> <map> <memory> <mutex> <optional> <span>
  <string> <string_view> <utility> <vector> ${PROJECT_SOURCE_DIR}/src/platform/windows_api.h)
set(QX_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h> <filesystem> <random> <set> ${QX_STANDARD_HEADERS})

# A precompiled header that is made again must be the same to the cache.
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

# qx_precompile(<target> <header>...): the target's own precompiled header.
function(qx_precompile target)
  if(QX_PCH)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# qx_precompiled_as(<target> <other>): the precompiled header of another target of the same flags.
function(qx_precompiled_as target other)
  if(QX_PCH)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()
