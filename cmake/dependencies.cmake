# What Debian gives the project: header-only libraries for the host, ICU and libacl for the native platform layer,
# GoogleTest's sources for both builds.

# The cross compiler does not look into /usr/include, so it gets the header-only libraries by themselves.
set(QX_HEADER_ONLY ${CMAKE_BINARY_DIR}/header_only)
foreach(library CLI nlohmann)
  if(NOT EXISTS /usr/include/${library})
    message(FATAL_ERROR "/usr/include/${library} is missing: run ./run or ./test, which install what is needed")
  endif()
  file(COPY /usr/include/${library} DESTINATION ${QX_HEADER_ONLY})
endforeach()
add_library(qx_header_only INTERFACE)
target_include_directories(qx_header_only SYSTEM INTERFACE ${QX_HEADER_ONLY})

if(NOT WIN32)
  find_package(ICU REQUIRED COMPONENTS uc i18n)
  # POSIX access lists.
  find_library(QX_ACL_LIBRARY acl REQUIRED)
endif()

set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(GTEST_HAS_ABSL OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
foreach(library gtest gtest_main gmock)
  target_compile_options(${library} PRIVATE -O0 -g1)
endforeach()
