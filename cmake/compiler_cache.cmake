# ccache, if it is installed. It may treat a precompiled header as unchanged if only its time differs. It uses the lists
# of headers that the compiler writes anyway, which saves a run of the preprocessor for each source.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_DEPEND=1 ${CCACHE})
endif()
