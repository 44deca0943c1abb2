# What every target of the project has in common.
include(GNUInstallDirs)

set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Language, include root and warnings of one target of ours.
function(psgraphics_configure target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                         $<$<BOOL:${PSGRAPHICS_STRICT}>:-Werror>)
endfunction()

# psgraphics_library(Name [dependency...]): the library of one folder, all sources below it,
# under the alias PSGraphics::Name. Its exported symbols carry NAME_API from Name/Export.h.
function(psgraphics_library name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} ${sources})
  add_library(PSGraphics::${name} ALIAS ${name})
  psgraphics_configure(${name})
  target_link_libraries(${name} PUBLIC ${ARGN})
  string(TOUPPER ${name} upper)
  target_compile_definitions(${name} PRIVATE PSGRAPHICS_BUILDING_${upper})
  if(BUILD_SHARED_LIBS)
    target_compile_definitions(${name} PUBLIC PSGRAPHICS_SHARED)
  endif()
  set_target_properties(${name} PROPERTIES OUTPUT_NAME psgraphics-${name}
                        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
endfunction()
