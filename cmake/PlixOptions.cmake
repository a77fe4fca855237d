# Flags that every target of the project is built with.
add_library(plix_options INTERFACE)
target_compile_options(plix_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual -Wundef
    -Wno-overloaded-virtual
    # g++ 12 sees uninitialised members in every std::variant that it inlines.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    # Some libraries ask for it, and what is precompiled must agree on it.
    -pthread)
if(PLIX_WARNINGS_AS_ERRORS)
    target_compile_options(plix_options INTERFACE -Werror)
endif()
if(PLIX_SANITIZE)
    target_compile_options(plix_options INTERFACE -fsanitize=${PLIX_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    target_link_options(plix_options INTERFACE -fsanitize=${PLIX_SANITIZE})
endif()

if(PLIX_PRECOMPILED_HEADERS AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(plix_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Without this slackness nothing that uses a precompiled header is cached.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_ctime,include_file_mtime
        ${CCACHE_PROGRAM})
endif()
# A program loads only the libraries that it uses.
add_link_options(-Wl,--as-needed)
find_program(LLD_PROGRAM ld.lld)
if(LLD_PROGRAM)
    add_link_options(-fuse-ld=lld)
endif()
if(PLIX_COVERAGE)
    target_compile_options(plix_options INTERFACE --coverage)
    target_link_options(plix_options INTERFACE --coverage)
endif()
