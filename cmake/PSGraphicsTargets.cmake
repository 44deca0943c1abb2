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

# psgraphics_library(Name [dependency...]): the library of one folder, all sources below it,
# under the alias PSGraphics::Name. Its exported symbols carry NAME_API from Name/Export.h;
# its headers are public except those in a folder named "internal".
function(psgraphics_library name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  list(FILTER headers EXCLUDE REGEX "/internal/")
  add_library(${name} ${sources})
  add_library(PSGraphics::${name} ALIAS ${name})
  psgraphics_configure(${name})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${headers})
  target_link_libraries(${name} PUBLIC ${ARGN})
  set_target_properties(${name} PROPERTIES OUTPUT_NAME psgraphics-${name}
                        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
endfunction()

# psgraphics_uses(Name module...): pkg-config modules that a target calls in its sources and
# never shows in a header. The target remembers them, as whoever links a static library of ours
# has to find them too.
function(psgraphics_uses name)
  find_package(PkgConfig REQUIRED)
  foreach(module ${ARGN})
    pkg_check_modules(${module} REQUIRED IMPORTED_TARGET GLOBAL ${module})
    target_link_libraries(${name} PRIVATE PkgConfig::${module})
  endforeach()
  set_property(TARGET ${name} APPEND PROPERTY PSGRAPHICS_MODULES ${ARGN})
endfunction()
