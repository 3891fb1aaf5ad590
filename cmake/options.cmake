# qx_options: what every target of the project is compiled with; the tests' libraries are not.
add_library(qx_options INTERFACE)
target_include_directories(qx_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
# For C++ alone: the resource compiler takes none of these.
target_compile_options(qx_options INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wconversion;-Wnon-virtual-dtor>)
# GCC 12 warns of overlaps in std::string's assignment that do not exist (its bug 105651).
target_compile_options(qx_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# It treats a source that is compiled in a batch as a header, in which unnamed namespaces would be an error.
target_compile_options(qx_options INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-subobject-linkage>)
# Windows' own constants and types differ in sign.
if(WIN32)
  target_compile_options(qx_options INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wno-sign-conversion>)
endif()
if(QX_WERROR)
  target_compile_options(qx_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Werror>)
endif()

if(WIN32)
  enable_language(RC)
  set(CMAKE_RC_FLAGS "${CMAKE_RC_FLAGS} -c 65001")
  # The product needs no other libraries: the runtime, including threads, is linked in.
  add_link_options(-static)
  # 0x0601: Windows 7, the oldest system that the extensions serve.
  target_compile_definitions(qx_options INTERFACE UNICODE _UNICODE _WIN32_WINNT=0x0601 WINVER=0x0601)
endif()

if(QX_SANITIZE)
  add_compile_options(-fsanitize=${QX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QX_SANITIZE})
endif()
# Linking takes a large share of the time with the slower of the linkers.
find_program(LLD ld.lld)
if(LLD AND NOT WIN32)
  add_link_options(-fuse-ld=lld)
endif()

# qx_sources(<variable> <folder>...): the C++ sources of these folders that belong to this build.
function(qx_sources variable)
  set(sources)
  foreach(folder ${ARGN})
    file(GLOB found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
    list(APPEND sources ${found})
  endforeach()
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_windows\\.cpp$")
  endif()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()
