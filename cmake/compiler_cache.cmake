# ccache, where it is there. It may take a precompiled header for the same when only its time differs; and it goes
# by the lists of headers that the compiler writes anyway, which spares a run of the preprocessor for each source.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_DEPEND=1 ${CCACHE})
endif()
