# What `cpack` writes: Debian packages of the library, of what programs are built with, and of the examples.

set(PLIX_SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME plix)
set(CPACK_PACKAGE_VENDOR "")
set(CPACK_PACKAGE_CONTACT "plix developers <plix@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "User-interface classes and utilities in AppKit's shapes")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development examples)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libplix${PLIX_SOVERSION})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION_SUMMARY}: shared library and resources
 Views, cells, windows, tables, text, drawing, sound and speech for Linux desktop applications,
 and plain functions for geometry, values and bits.")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# No linker sees what is loaded by name; nor the fonts without which there is no text.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS "libtiff6, fonts-inter, fonts-dejavu-core")
# Services that it does without: SVG images, sound files, sound, media, speech.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "librsvg2-2, libsndfile1, libpulse0, libgstreamer1.0-0, speech-dispatcher")

set(exact_library "libplix${PLIX_SOVERSION} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libplix-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${exact_library}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "cmake, pkg-config")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION_SUMMARY}: headers
 Headers, plix::logic as a static library, and what CMake and pkg-config need to find plix.")

set(CPACK_DEBIAN_EXAMPLES_PACKAGE_NAME plix-examples)
set(CPACK_DEBIAN_EXAMPLES_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_EXAMPLES_PACKAGE_DEPENDS "${exact_library}")
set(CPACK_DEBIAN_EXAMPLES_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_EXAMPLES_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION_SUMMARY}: programs
 A browser of files, a gallery of every class in its states, and a reader of H.264 headers, with
 their sources.")

set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/plix)
include(CPack)
