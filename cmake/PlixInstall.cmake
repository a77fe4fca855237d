# What `cmake --install` writes. Nothing in it holds the prefix, so that a tree may be moved after it was installed.

include(CMakePackageConfigHelpers)
set(PLIX_CONFIG_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/plix)

# plix_reached_headers(result header...): these headers of the library, and those that they include.
function(plix_reached_headers result)
    set(waiting ${ARGN})
    set(reached "")
    while(waiting)
        list(POP_FRONT waiting header)
        if(NOT header IN_LIST reached)
            list(APPEND reached ${header})
            file(STRINGS ${PROJECT_SOURCE_DIR}/${header} lines REGEX "^#include <plix/")
            list(TRANSFORM lines REPLACE "^#include <(.*)>.*" "\\1")
            list(APPEND waiting ${lines})
            set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${header})
        endif()
    endwhile()
    set(${result} ${reached} PARENT_SCOPE)
endfunction()

function(plix_install_headers)
    # Everything for applications and for hosts, and the plans and value functions of plix::logic.
    set(roots plix/plix.h plix/hosting.h plix/platform/foundation/plugin_module.h)
    get_target_property(sources plix_logic SOURCES)
    foreach(source ${sources})
        cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${PROJECT_SOURCE_DIR}/plix)
        string(REGEX REPLACE "\\.cpp$" ".h" header plix/${source})
        if(NOT header MATCHES "/desktop/|/classes\\.h$" AND EXISTS ${PROJECT_SOURCE_DIR}/${header})
            list(APPEND roots ${header})
        endif()
    endforeach()
    plix_reached_headers(headers ${roots})
    foreach(header ${headers})
        cmake_path(GET header PARENT_PATH folder)
        install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder} COMPONENT development)
    endforeach()
endfunction()

# What a static library leaves to be linked is found again by those who use it.
if(PLIX_SHARED)
    set(installed_library plix_shared)
else()
    set(installed_library plix)
    set_target_properties(plix PROPERTIES EXPORT_NAME plix)
    get_property(lines GLOBAL PROPERTY PLIX_CONFIG_LINES)
    list(JOIN lines "\n" PLIX_DEPENDENCIES)
    get_property(words GLOBAL PROPERTY PLIX_PC_WORDS)
    set(options ${words} -ldl -pthread)
    list(FILTER words EXCLUDE REGEX "^-")
    list(FILTER options INCLUDE REGEX "^-")
    list(JOIN words " " PLIX_PC_PRIVATE)
    list(JOIN options " " PLIX_PC_LIBS_PRIVATE)
endif()

install(TARGETS ${installed_library} plix_logic EXPORT plix
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/plix/resources/ DESTINATION ${CMAKE_INSTALL_DATADIR}/plix COMPONENT library)
plix_install_headers()

install(EXPORT plix NAMESPACE plix:: FILE plixTargets.cmake DESTINATION ${PLIX_CONFIG_FOLDER} COMPONENT development)
set(PLIX_HOST_STRINGS_FOLDER ${CMAKE_INSTALL_DATADIR}/plix/host)
set(PLIX_PLUGIN_FOLDER ${CMAKE_INSTALL_LIBDIR}/plix/plugins)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/plixConfig.cmake.in ${PROJECT_BINARY_DIR}/plixConfig.cmake
    INSTALL_DESTINATION ${PLIX_CONFIG_FOLDER}
    PATH_VARS PLIX_HOST_STRINGS_FOLDER PLIX_PLUGIN_FOLDER NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/plixConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/plixConfig.cmake ${PROJECT_BINARY_DIR}/plixConfigVersion.cmake
    DESTINATION ${PLIX_CONFIG_FOLDER} COMPONENT development)
# plix_add_resources() and plix_add_plugin(), and what these copy.
install(FILES ${PROJECT_SOURCE_DIR}/cmake/PlixResources.cmake ${PROJECT_SOURCE_DIR}/cmake/PlixCopyResources.cmake
    ${PROJECT_SOURCE_DIR}/cmake/PluginInfo.plist.in DESTINATION ${PLIX_CONFIG_FOLDER} COMPONENT development)
if(TARGET DatePicker)
    install(DIRECTORY $<TARGET_PROPERTY:DatePicker,PLIX_BUNDLE> DESTINATION ${CMAKE_INSTALL_LIBDIR}/plix/plugins COMPONENT development)
endif()

file(RELATIVE_PATH PLIX_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" PLIX_PREFIX_FROM_PC "${PLIX_PREFIX_FROM_PC}")
foreach(name plix plix-logic)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()

# The guide, with its pictures where its pages look for them.
set(guide ${CMAKE_INSTALL_DATADIR}/doc/libplix-dev)
install(FILES ${PROJECT_SOURCE_DIR}/docs/GUIDE.md DESTINATION ${guide}/docs COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/guide ${PROJECT_SOURCE_DIR}/docs/snippets DESTINATION ${guide}/docs COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/tests/references/guide DESTINATION ${guide}/tests/references COMPONENT development)

if(PLIX_INSTALLED_EXAMPLES)
    install(TARGETS ${PLIX_INSTALLED_EXAMPLES} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT examples)
    plix_install_resources(browser COMPONENT examples)
    plix_install_resources(gallery COMPONENT examples)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/gallery/ DESTINATION ${CMAKE_INSTALL_DATADIR}/plix-gallery/gallery-sources
        COMPONENT examples FILES_MATCHING PATTERN "*.cpp")
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/plix-examples/sources COMPONENT examples)
endif()
