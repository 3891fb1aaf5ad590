# Sources are compiled in batches: a batch is one translation unit that includes its sources, so that what their
# headers cost is paid once a batch. Each source still includes what it uses, and QX_BATCHES=OFF compiles each by
# itself. In return, a name in an unnamed namespace must be unique in its batch.
#
# A source's batch follows from its folder and a hash of its name, never from the other sources: adding one
# changes no other batch. A source's property QX_BATCH names another batch for it, as for the few that include a large
# header.
option(QX_BATCHES "Compile sources in batches" ON)

# qx_batches(<target> <batches>): compiles the sources of <target> in that many batches at most for each folder next
# to the CMakeLists.txt; the folders within a folder share its batches.
function(qx_batches target batches)
  if(NOT QX_BATCHES)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    if(NOT source MATCHES "\\.cpp$")
      continue()
    endif()
    get_source_file_property(batch ${source} QX_BATCH)
    if(batch)
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${batch})
      continue()
    endif()
    file(RELATIVE_PATH folder ${CMAKE_CURRENT_SOURCE_DIR} ${source})
    string(REGEX REPLACE "/.*" "" folder ${folder})
    get_filename_component(name ${source} NAME_WE)
    string(MD5 hash ${name})
    string(SUBSTRING ${hash} 0 6 hash)
    math(EXPR batch "0x${hash} % ${batches}")
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${folder}_${batch}")
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()
