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

# ccache knows a precompiled header by its content, in which clang writes the time unless told not to. What g++ writes differs each
# time, and a checksum beside it stands for that; see plix_precompile().
if(PLIX_PRECOMPILED_HEADERS AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(plix_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
elseif(PLIX_PRECOMPILED_HEADERS)
    target_compile_options(plix_options INTERFACE -fpch-preprocess)
endif()

# Precompiles a header for a target, which others may reuse: of the standard library and the test framework, nothing of the project's.
function(plix_precompile target header)
    if(NOT PLIX_PRECOMPILED_HEADERS)
        return()
    endif()
    target_precompile_headers(${target} PRIVATE ${header})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        file(READ ${header} text)
        string(SHA256 checksum "${text} ${CMAKE_CXX_COMPILER_VERSION} ${GTest_VERSION}")
        get_target_property(folder ${target} BINARY_DIR)
        file(WRITE ${folder}/CMakeFiles/${target}.dir/cmake_pch.hxx.gch.sum ${checksum})
    endif()
endfunction()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Without this slackness nothing that uses a precompiled header is cached.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_PCH_EXTSUM=1 CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_ctime,include_file_mtime
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
