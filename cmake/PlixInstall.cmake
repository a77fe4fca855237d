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
    set(roots plix/plix.h plix/hosting.h)
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
set(PLIX_DEPENDENCIES "")
set(PLIX_PC_PRIVATE "")
set(PLIX_PC_LIBS_PRIVATE "")
if(PLIX_SHARED)
    set(installed_library plix_shared)
else()
    set(installed_library plix)
    set_target_properties(plix PROPERTIES EXPORT_NAME plix)
    set(PLIX_PC_LIBS_PRIVATE "-lgif -ldl -pthread")
    set(PLIX_PC_PRIVATE "pangocairo pangofc fontconfig libjpeg icu-uc icu-i18n pugixml")
    string(APPEND PLIX_DEPENDENCIES "find_dependency(PkgConfig)\n"
        "pkg_check_modules(PANGOCAIRO REQUIRED IMPORTED_TARGET pangocairo pangofc fontconfig)\n"
        "pkg_check_modules(PICTURES REQUIRED IMPORTED_TARGET libjpeg)\n"
        "find_dependency(GIF)\nfind_dependency(ICU COMPONENTS uc i18n)\nfind_dependency(pugixml)\n")
    if(PLIX_DESKTOP_HOST)
        set(desktop_modules "sdl2 x11 xext xcursor xfixes xi xrandr xkbcommon")
        string(APPEND PLIX_PC_PRIVATE " ${desktop_modules}")
        string(APPEND PLIX_DEPENDENCIES "pkg_check_modules(DESKTOP REQUIRED IMPORTED_TARGET ${desktop_modules})\n")
    endif()
endif()

install(TARGETS ${installed_library} plix_logic EXPORT plix
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/plix/resources/ DESTINATION ${CMAKE_INSTALL_DATADIR}/plix COMPONENT library)
plix_install_headers()

install(EXPORT plix NAMESPACE plix:: FILE plixTargets.cmake DESTINATION ${PLIX_CONFIG_FOLDER} COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/plixConfig.cmake.in ${PROJECT_BINARY_DIR}/plixConfig.cmake
    INSTALL_DESTINATION ${PLIX_CONFIG_FOLDER} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/plixConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/plixConfig.cmake ${PROJECT_BINARY_DIR}/plixConfigVersion.cmake
    DESTINATION ${PLIX_CONFIG_FOLDER} COMPONENT development)
if(EXISTS ${PROJECT_SOURCE_DIR}/cmake/PlixResources.cmake)
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/PlixResources.cmake DESTINATION ${PLIX_CONFIG_FOLDER} COMPONENT development)
endif()

file(RELATIVE_PATH PLIX_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" PLIX_PREFIX_FROM_PC "${PLIX_PREFIX_FROM_PC}")
foreach(name plix plix-logic)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()

if(PLIX_EXAMPLES)
    foreach(example browser gallery h264_headers)
        string(REPLACE _ - command plix-${example})
        install(PROGRAMS $<TARGET_FILE:${example}> DESTINATION ${CMAKE_INSTALL_BINDIR} RENAME ${command} COMPONENT examples)
    endforeach()
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT examples)
endif()
