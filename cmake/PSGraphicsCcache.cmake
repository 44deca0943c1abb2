# Compiles through ccache where it is installed, unless the user chose a launcher.
find_program(PSGRAPHICS_CCACHE ccache)
mark_as_advanced(PSGRAPHICS_CCACHE)
if(PSGRAPHICS_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers carry the time of their making; without this setting nothing that
  # includes one would ever be found in the cache.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${PSGRAPHICS_CCACHE})
endif()
