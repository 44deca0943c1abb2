# What every target of the project has in common.
include(GNUInstallDirs)
include(PSGraphicsHardening)

set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Language, include root, hardening and warnings of one target of ours.
function(psgraphics_configure target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
  psgraphics_harden(${target})
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                         $<$<BOOL:${PSGRAPHICS_STRICT}>:-Werror>)
  # g++ 12 reports overlaps and overflows inside its own <string> for `"literal" + text` once it
  # optimises (GCC bug 105651, fixed in 13), and with sanitizers takes members of its own <regex>
  # for uninitialised.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict -Wno-array-bounds
                           -Wno-stringop-overflow -Wno-stringop-overread
                           $<$<CONFIG:None>:-Wno-maybe-uninitialized>)
  endif()
endfunction()

# psgraphics_library(Name [dependency...]): the library of one folder, all sources below it, as
# the target psgraphics-Name under the alias PSGraphics::Name: short names belong to the project
# that this one may be a part of. Exported symbols carry NAME_API from Name/Export.h; headers are
# public except those in a folder named "internal".
function(psgraphics_library name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  list(FILTER headers EXCLUDE REGEX "/internal/")
  set(target psgraphics-${name})
  add_library(${target} ${sources})
  add_library(PSGraphics::${name} ALIAS ${target})
  psgraphics_configure(${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${headers})
  target_link_libraries(${target} PUBLIC ${ARGN})
  # Without the definition that CMake adds for shared libraries, objects of both kinds are the same
  # to a compiler cache.
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} DEFINE_SYMBOL ""
                        VERSION ${PROJECT_VERSION} SOVERSION ${PSGRAPHICS_ABI})
endfunction()

# psgraphics_uses(target module...): pkg-config modules that a target calls in its sources and
# never shows in a header. The target remembers them, as whoever links a static library of ours
# has to find them too.
function(psgraphics_uses target)
  find_package(PkgConfig REQUIRED)
  foreach(module ${ARGN})
    pkg_check_modules(${module} REQUIRED IMPORTED_TARGET GLOBAL ${module})
    target_link_libraries(${target} PRIVATE PkgConfig::${module})
  endforeach()
  set_property(TARGET ${target} APPEND PROPERTY PSGRAPHICS_MODULES ${ARGN})
endfunction()
