# What plix is linked with. It is written down on the way, so that those who link the installed static library find it again.

find_package(PkgConfig REQUIRED)
set_property(GLOBAL PROPERTY PLIX_CONFIG_LINES "find_dependency(PkgConfig)")
set_property(GLOBAL PROPERTY PLIX_PC_WORDS "")

# plix_link_modules(name module...): modules of pkg-config.
macro(plix_link_modules name)
    pkg_check_modules(${name} REQUIRED IMPORTED_TARGET ${ARGN})
    target_link_libraries(plix PRIVATE PkgConfig::${name})
    string(JOIN " " plix_words ${ARGN})
    set_property(GLOBAL APPEND PROPERTY PLIX_CONFIG_LINES "pkg_check_modules(${name} REQUIRED IMPORTED_TARGET ${plix_words})")
    set_property(GLOBAL APPEND PROPERTY PLIX_PC_WORDS ${ARGN})
endmacro()

# plix_link_package("name [COMPONENTS component...]" TARGETS target... PC word...): a package of CMake, and what pkg-config calls it:
# names of modules, or options for the linker.
macro(plix_link_package name)
    cmake_parse_arguments(PLIX_LINK "" "" "TARGETS;PC" ${ARGN})
    string(REPLACE " " ";" plix_words "${name}")
    find_package(${plix_words} REQUIRED)
    target_link_libraries(plix PRIVATE ${PLIX_LINK_TARGETS})
    set_property(GLOBAL APPEND PROPERTY PLIX_CONFIG_LINES "find_dependency(${name})")
    set_property(GLOBAL APPEND PROPERTY PLIX_PC_WORDS ${PLIX_LINK_PC})
endmacro()
