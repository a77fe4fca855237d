# Tests are run by scripts/run-tests.py, which reads what these functions write down, and by ctest, which finds them by itself.

find_package(GTest REQUIRED)
include(GoogleTest)

set_property(GLOBAL PROPERTY PLIX_TEST_PROGRAMS "")

function(plix_note_test line)
    set_property(GLOBAL APPEND PROPERTY PLIX_TEST_PROGRAMS "${line}")
endfunction()

# plix_add_tests(name library pattern...): one GoogleTest program, test_<name>, of the sources that the patterns find. A process runs
# PLIX_TESTS_TO_A_PROCESS of its tests.
set(PLIX_TESTS_TO_A_PROCESS 150)
function(plix_add_tests name library)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${ARGN})
    if(NOT name STREQUAL "logic")
        list(FILTER sources EXCLUDE REGEX "_logic_test\\.cpp$")
    endif()
    if(NOT PLIX_DESKTOP_HOST AND NOT name STREQUAL "logic")
        list(FILTER sources EXCLUDE REGEX "/host/desktop/|_services_test\\.cpp$")
    endif()
    if(NOT sources)
        return()
    endif()
    add_executable(test_${name} ${sources})
    target_link_libraries(test_${name} PRIVATE ${library} plix_options GTest::gmock GTest::gtest_main)
    if(TARGET plix_test_support)
        target_link_libraries(test_${name} PRIVATE plix_test_support)
    endif()
    if(PLIX_PRECOMPILED_HEADERS)
        target_precompile_headers(test_${name} REUSE_FROM plix_test_headers)
    endif()
    plix_note_test("gtest|test_${name}|$<TARGET_FILE:test_${name}>|${PLIX_TESTS_TO_A_PROCESS}")
    gtest_discover_tests(test_${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()

# plix_add_command_test(name word...): one test that is a command; status 0 is passed, 77 skipped.
function(plix_add_command_test name)
    list(JOIN ARGN "|" words)
    plix_note_test("command|${name}|${words}")
    add_test(NAME ${name} COMMAND ${ARGN})
    set_tests_properties(${name} PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 300)
endfunction()

# plix_add_python_tests(suite file): each test method of a file of Python's unittest is one test.
function(plix_add_python_tests suite file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(STRINGS ${file} lines REGEX "^    def test_")
    foreach(line ${lines})
        string(REGEX REPLACE "^    def test_([A-Za-z0-9_]+).*" "\\1" method "${line}")
        plix_add_command_test(${suite}.${method} python3 -B ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${suite}.test_${method})
    endforeach()
endfunction()

# To be called when all tests are added.
function(plix_write_test_programs)
    get_property(lines GLOBAL PROPERTY PLIX_TEST_PROGRAMS)
    list(JOIN lines "\n" text)
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/tests/test_programs.txt CONTENT "${text}\n")
endfunction()
