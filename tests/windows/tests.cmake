# The tests of the Windows programs, each run under wine, the cross-compiling emulator. scripts/test
# makes the wine prefix once and keeps its server running; the programs that make windows run in
# the X server it starts.
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

# A GoogleTest program as one test under wine. A mingw program writes CRLF, and a run of no test
# at all must not pass: the summary has to name at least one passed test, and none failed.
function(vorlane_windows_test name)
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1 ${ARGN})
  set_tests_properties(${name} PROPERTIES PASS_REGULAR_EXPRESSION "\\[  PASSED  \\] [1-9][0-9]* tests?\\."
    FAIL_REGULAR_EXPRESSION "\\[  FAILED  \\]" TIMEOUT 300)
endfunction()

# Wine shows the build machine's / as drive Z:. The tests find their data, the examples and
# vorlane-cli.exe there.
set(windows_source "Z:${CMAKE_CURRENT_SOURCE_DIR}")

# The logic tests, as on Linux, and vorlane-cli.exe run on the transcript's rows. The helpers of
# the tests that use the system's own calls have a POSIX and a Windows form.
file(GLOB VORLANE_LOGIC_TESTS CONFIGURE_DEPENDS
  store/*.cpp fields/*.cpp vocab/*.cpp speech/*.cpp ui/*.cpp cli/*.cpp support/*.cpp)
list(FILTER VORLANE_LOGIC_TESTS EXCLUDE REGEX "_posix\\.cpp$")
add_executable(logic_tests ${VORLANE_LOGIC_TESTS})
target_include_directories(logic_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(logic_tests PRIVATE vorlane_cli vorlane_logic gtest gtest_main gmock)
target_compile_definitions(logic_tests PRIVATE VORLANE_TEST_DATA="${windows_source}/data"
  VORLANE_CLI_PROGRAM="Z:$<TARGET_FILE:vorlane-cli>")
add_dependencies(logic_tests vorlane-cli)
vorlane_windows_test(logic_tests)

# The Win32 front end's windows, driven in their own process.
file(GLOB VORLANE_WIN32_TESTS CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/win32/*.cpp)
add_executable(win32_tests ${VORLANE_WIN32_TESTS} ${CMAKE_CURRENT_SOURCE_DIR}/support/files.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/support/files_win.cpp)
target_include_directories(win32_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(win32_tests PRIVATE vorlane_win32 gtest gtest_main)
target_compile_definitions(win32_tests PRIVATE VORLANE_TEST_DATA="${windows_source}/data")
vorlane_windows_test(win32_tests)
# The same at 150 %: every size in twips becomes pixels at 144 dots per inch.
add_test(NAME win32_tests_144dpi COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/windows/at_dpi.sh 144
  $<TARGET_FILE:win32_tests> --gtest_brief=1)
set_tests_properties(win32_tests_144dpi PROPERTIES PASS_REGULAR_EXPRESSION "\\[  PASSED  \\] [1-9][0-9]* tests?\\."
  FAIL_REGULAR_EXPRESSION "\\[  FAILED  \\]" TIMEOUT 300 RUN_SERIAL TRUE)
