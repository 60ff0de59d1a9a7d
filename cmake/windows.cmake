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
target_link_libraries(vorlane_win32 PUBLIC vorlane_logic comctl32 gdi32 oleaut32 oleacc uuid user32)

# The file dialogs, the About picture's decoder and COM are loaded when they are first used, not
# at start: their libraries are linked for delayed loading, with the functions that are called
# from them. A function missing here fails the link.
set(vorlane_delayed_comdlg32 GetOpenFileNameW GetSaveFileNameW)
set(vorlane_delayed_gdiplus GdiplusStartup GdipCreateBitmapFromStream GdipCreateHBITMAPFromBitmap GdipDisposeImage)
set(vorlane_delayed_ole32 CoInitializeEx CoUninitialize CoCreateInstance CreateStreamOnHGlobal)
foreach(library comdlg32 gdiplus ole32)
  set(def ${CMAKE_CURRENT_BINARY_DIR}/delayed/${library}.def)
  string(REPLACE ";" "\n" functions "${vorlane_delayed_${library}}")
  file(CONFIGURE OUTPUT ${def} CONTENT "LIBRARY ${library}.dll\nEXPORTS\n${functions}\n")
  set(delayed ${CMAKE_CURRENT_BINARY_DIR}/delayed/lib${library}_delayed.a)
  add_custom_command(OUTPUT ${delayed} DEPENDS ${def}
    COMMAND ${CMAKE_DLLTOOL} --input-def ${def} --output-delaylib ${delayed} --dllname ${library}.dll)
  add_custom_target(vorlane_delayed_${library} DEPENDS ${delayed})
  add_dependencies(vorlane_win32 vorlane_delayed_${library})
  target_link_libraries(vorlane_win32 PUBLIC ${delayed})
endforeach()

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
# The bare window is a program as the editor is: with the same manifest (Common Controls 6, the
# screen's resolution), icon and version.
add_executable(bare_window_win WIN32 bench/bare_window_win.cpp)
target_link_options(bare_window_win PRIVATE -municode)
vorlane_resources(bare_window_win bare_window_win "A bare window to compare start-up times with")
add_executable(startup_win bench/startup_win.cpp)
target_link_options(startup_win PRIVATE -municode)
