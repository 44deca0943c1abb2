# What `cmake --install` puts where: libraries, their public headers below
# include/psgraphics, the command-line host, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

set(libraries Core Drawing ZipLib Fonts PS Print)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/psgraphics)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/PSGraphics)

# Modules that stand behind the libraries. A shared library brings its own along; a static one
# leaves them to the program that links it.
set(modules "")
if(NOT BUILD_SHARED_LIBS)
  foreach(library ${libraries})
    get_target_property(of_library ${library} PSGRAPHICS_MODULES)
    if(of_library)
      list(APPEND modules ${of_library})
    endif()
  endforeach()
  list(REMOVE_DUPLICATES modules)
endif()

install(TARGETS ${libraries} EXPORT PSGraphicsTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        FILE_SET HEADERS DESTINATION ${header_folder})
install(EXPORT PSGraphicsTargets NAMESPACE PSGraphics:: DESTINATION ${package_folder})

if(TARGET psrender)
  install(TARGETS psrender RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# Shared libraries and the host find each other wherever the whole prefix is moved, and lie in the
# build tree as they will when installed. So one run path serves both: where it has to be changed at
# installation, CMake makes room for the later one with empty entries, and each of them stands for
# the folder that the program is started in, whatever libraries lie there.
if(BUILD_SHARED_LIBS)
  file(RELATIVE_PATH libraries_from_host
       /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
  set_target_properties(${libraries} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN"
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})
  if(TARGET psrender)
    set_target_properties(psrender PROPERTIES
      BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN/${libraries_from_host}"
      RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_BINDIR})
  endif()
endif()

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/PSGraphicsConfig.cmake.in
  ${PROJECT_BINARY_DIR}/PSGraphicsConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/PSGraphicsConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PSGraphicsConfig.cmake
              ${PROJECT_BINARY_DIR}/PSGraphicsConfigVersion.cmake
        DESTINATION ${package_folder})

# The archives in the order in which a linker wants them: users before what they use.
set(link_flags "")
foreach(library Print PS Fonts Drawing ZipLib Core)
  string(APPEND link_flags " -lpsgraphics-${library}")
endforeach()
file(RELATIVE_PATH prefix_from_pc_file /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pc_file ${prefix_from_pc_file})
list(JOIN modules " " requires_private)
configure_file(${PROJECT_SOURCE_DIR}/cmake/psgraphics.pc.in
               ${PROJECT_BINARY_DIR}/psgraphics.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/psgraphics.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
