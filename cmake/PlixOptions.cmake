# Flags that every target of the project is built with.
add_library(plix_options INTERFACE)
target_compile_options(plix_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual -Wundef
    -Wno-overloaded-virtual)
if(PLIX_WARNINGS_AS_ERRORS)
    target_compile_options(plix_options INTERFACE -Werror)
endif()
if(PLIX_SANITIZE)
    target_compile_options(plix_options INTERFACE -fsanitize=${PLIX_SANITIZE} -fno-omit-frame-pointer)
    target_link_options(plix_options INTERFACE -fsanitize=${PLIX_SANITIZE})
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
find_program(LLD_PROGRAM ld.lld)
if(LLD_PROGRAM)
    add_link_options(-fuse-ld=lld)
endif()
