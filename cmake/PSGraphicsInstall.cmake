# What `cmake --install` puts where: libraries, their public headers below
# include/psgraphics, the command-line host with its manual page and completions, a CMake package
# and a pkg-config file. The components are packages: program, libraries, development, documents.
include(CMakePackageConfigHelpers)

set(components Core Drawing ZipLib Fonts PS Print)
if(TARGET psgraphics-Images)
  list(APPEND components Images)
endif()
list(TRANSFORM components PREPEND psgraphics- OUTPUT_VARIABLE libraries)
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
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libraries
                NAMELINK_COMPONENT development
        FILE_SET HEADERS DESTINATION ${header_folder} COMPONENT development)
install(EXPORT PSGraphicsTargets NAMESPACE PSGraphics:: DESTINATION ${package_folder}
        COMPONENT development)

if(TARGET psrender)
  install(TARGETS psrender RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
  install(TARGETS psrender-raster COMPONENT program
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/psrender)
  set(completions ${PROJECT_SOURCE_DIR}/psrender/completions)
  install(FILES ${completions}/psrender.bash RENAME psrender COMPONENT program
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${completions}/_psrender COMPONENT program
          DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
  install(FILES ${completions}/psrender.fish COMPONENT program
          DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
  if(NOT PSGRAPHICS_PACKAGES)
    install(FILES ${PROJECT_SOURCE_DIR}/docs/psrender.1 COMPONENT program
            DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  endif()
  if(PSGRAPHICS_CUPS)
    add_subdirectory(${PROJECT_SOURCE_DIR}/cups)
  endif()
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
    set_target_properties(psrender-raster PROPERTIES
      BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN/.."
      LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}/psrender)
  endif()
endif()

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/PSGraphicsConfig.cmake.in
  ${PROJECT_BINARY_DIR}/PSGraphicsConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/PSGraphicsConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PSGraphicsConfig.cmake
              ${PROJECT_BINARY_DIR}/PSGraphicsConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT development)

# The archives in the order in which a linker wants them: users before what they use.
set(link_flags "")
list(REVERSE components)
foreach(library IN LISTS components)
  string(APPEND link_flags " -lpsgraphics-${library}")
endforeach()
file(RELATIVE_PATH prefix_from_pc_file /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pc_file ${prefix_from_pc_file})
list(JOIN modules " " requires_private)
configure_file(${PROJECT_SOURCE_DIR}/cmake/psgraphics.pc.in
               ${PROJECT_BINARY_DIR}/psgraphics.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/psgraphics.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
