# Debian packages, one a component: psrender, libpsgraphicsN (N is the number of compatible
# releases that is part of the libraries' file names), libpsgraphics-dev, python3-psgraphics and
# psgraphics-doc.
# tools/make-packages configures for them, builds and runs CPack.
find_program(PSGRAPHICS_GZIP gzip REQUIRED)
mark_as_advanced(PSGRAPHICS_GZIP)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "PSGraphics developers <psgraphics@packages.example.org>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/out/packages)
set(CPACK_COMPONENTS_ALL program libraries development documents python)
# CPack puts a summary of the project before each description unless it is its own default.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(library_package libpsgraphics${PSGRAPHICS_ABI})

find_package(Python REQUIRED COMPONENTS Interpreter Development.Module)

# psgraphics_package(component name section depends "synopsis" "description")
macro(psgraphics_package component name section depends synopsis description)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${synopsis}\n${description}")
  psgraphics_package_papers(${component} ${name})
endmacro()

# The changelog and the copyright, where Debian looks for those of a package.
function(psgraphics_package_papers component name)
  install(FILES ${PROJECT_BINARY_DIR}/debian/changelog.gz
                ${PROJECT_SOURCE_DIR}/cmake/debian/copyright
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endfunction()

function(psgraphics_compress file compressed)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  execute_process(COMMAND ${PSGRAPHICS_GZIP} -9nc ${file} OUTPUT_FILE ${compressed}
                  COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/debian)
psgraphics_compress(${PROJECT_SOURCE_DIR}/cmake/debian/changelog
                    ${PROJECT_BINARY_DIR}/debian/changelog.gz)
psgraphics_compress(${PROJECT_SOURCE_DIR}/docs/psrender.1 ${PROJECT_BINARY_DIR}/debian/psrender.1.gz)
install(FILES ${PROJECT_BINARY_DIR}/debian/psrender.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/psgraphics-doc)
install(FILES README.md CHANGELOG.md DESTINATION ${documents} COMPONENT documents)
install(DIRECTORY docs examples DESTINATION ${documents} COMPONENT documents
        FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.cpp" PATTERN "*.h"
        PATTERN "CMakeLists.txt")

psgraphics_package(program psrender graphics "${library_package} (= ${PROJECT_VERSION})"
  "turns SVG drawings and images into PostScript"
  "Makes one PostScript document of SVG drawings and images (PNG, JPEG, GIF,\n\
WebP), a page each, for printers, print queues and interpreters.")
psgraphics_package(libraries ${library_package} libs ""
  "drawing calls in, one PostScript file out"
  "The libraries that programs draw with: pages, paths, text in real fonts,\n\
images, gradients, patterns and forms become one PostScript document.")
psgraphics_package(development libpsgraphics-dev libdevel "${library_package} (= ${PROJECT_VERSION})"
  "drawing calls in, one PostScript file out (development files)"
  "Headers, a CMake package and a pkg-config file for programs that write\n\
PostScript with the PSGraphics libraries.")
math(EXPR next_minor "${Python_VERSION_MINOR} + 1")
psgraphics_package(python python3-psgraphics python
  "python3 (>= ${Python_VERSION_MAJOR}.${Python_VERSION_MINOR}), python3 (<< ${Python_VERSION_MAJOR}.${next_minor}), ${library_package} (= ${PROJECT_VERSION}), psrender (= ${PROJECT_VERSION})"
  "drawing calls in, one PostScript file out (Python)"
  "The drawing interface of the PSGraphics libraries for Python, conversion of\n\
drawings, and a back end for figures of matplotlib.")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-numpy, python3-matplotlib")
psgraphics_package(documents psgraphics-doc doc ""
  "drawing calls in, one PostScript file out (documents)"
  "How to embed the PSGraphics libraries and use their command-line program,\n\
with examples.")
# What other packages that link the libraries depend on, and word to the loader's cache.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_ARCHITECTURE all)
include(CPack)
