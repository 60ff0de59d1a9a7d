# The Windows programs: the editor on the Win32 API and the command line, each one static file
# with its icon, manifest and version as resources.
set(VORLANE_VERSION_COMMAS "${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},0")
set(VORLANE_VERSION_QUAD "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}.0")
set(VORLANE_ICON "${PROJECT_SOURCE_DIR}/data/vorlane.ico")

# The resources of one program.
function(vorlane_resources target program description)
  set(VORLANE_PROGRAM ${program})
  set(VORLANE_DESCRIPTION ${description})
  set(VORLANE_MANIFEST "${CMAKE_CURRENT_BINARY_DIR}/resources/${program}.exe.manifest")
  configure_file(${PROJECT_SOURCE_DIR}/src/win32/vorlane.exe.manifest ${VORLANE_MANIFEST} @ONLY)
  configure_file(${PROJECT_SOURCE_DIR}/src/win32/vorlane.rc.in ${CMAKE_CURRENT_BINARY_DIR}/resources/${program}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/resources/${program}.rc)
  set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/resources/${program}.rc APPEND PROPERTY OBJECT_DEPENDS
    ${VORLANE_ICON} ${VORLANE_MANIFEST})
endfunction()

# The front end: windows, controls, dialogs and the message loop, built from the control table.
add_library(vorlane_win32 STATIC src/win32/accessible.cpp src/win32/app.cpp src/win32/picture.cpp
  src/win32/platform.cpp src/win32/window_view.cpp)
target_link_libraries(vorlane_win32 PUBLIC vorlane_logic comctl32 comdlg32 gdiplus gdi32 ole32 oleaut32 oleacc
  uuid shell32 user32)

add_executable(vorlane WIN32 src/win32/main.cpp)
target_link_libraries(vorlane PRIVATE vorlane_win32)
target_link_options(vorlane PRIVATE -municode)
target_compile_definitions(vorlane PRIVATE VORLANE_VERSION_W=L"${PROJECT_VERSION}")
vorlane_resources(vorlane vorlane "Vorlane, an editor for the NPC script files of JA2 and UB")
vorlane_resources(vorlane-cli vorlane-cli "Vorlane on the command line")

# Pictures of the windows as the screen shows them under wine, for the README (docs/windows-*.png).
add_executable(vorlane_screenshot tools/screenshot_win.cpp)
target_link_libraries(vorlane_screenshot PRIVATE vorlane_win32)
target_include_directories(vorlane_screenshot PRIVATE tools)
target_link_options(vorlane_screenshot PRIVATE -municode)

# The start-up comparison with a bare Win32 window under the same wine (scripts/bench).
add_executable(bare_window_win WIN32 bench/bare_window_win.cpp)
target_link_options(bare_window_win PRIVATE -municode)
add_executable(startup_win bench/startup_win.cpp)
target_link_options(startup_win PRIVATE -municode)
