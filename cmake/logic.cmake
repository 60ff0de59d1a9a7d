# The logic: every behaviour of the editor, without any toolkit header. The one list of its
# sources, for the editor's build and for the fuzz build; VORLANE_ROOT is the source tree.
set(VORLANE_LOGIC_SOURCES
  src/system/text.cpp
  src/form/about_form.cpp
  src/form/edit_form.cpp
  src/form/events.cpp
  src/form/control_table.cpp
  src/form/record_tests.cpp
  src/form/registry.cpp
  src/form/vorlane.cpp
  src/store/archive_files.cpp
  src/store/conversion.cpp
  src/store/error_text.cpp
  src/store/file_commands.cpp
  src/store/hex.cpp
  src/store/image.cpp
  src/store/npc_dialogs.cpp
  src/store/number.cpp
  src/store/slf.cpp
  src/store/type_report.cpp
  src/fields/byte_help.cpp
  src/fields/explain.cpp
  src/fields/field_map.cpp
  src/vocab/codes.cpp
  src/vocab/items.cpp
  src/vocab/npc_names.cpp
  src/vocab/quests.cpp
  src/vocab/table.cpp
  src/vocab/triggers.cpp
  src/speech/cp1251.cpp
  src/speech/edt_reader.cpp
  src/speech/speech_pane.cpp
  src/ui/about.cpp
  src/ui/byte_grid.cpp
  src/ui/edit.cpp
  src/ui/events.cpp
  src/ui/navigation.cpp
  src/ui/reference_lists.cpp
  src/ui/shell.cpp)
# The system's own side of the files: POSIX, or the Windows API.
if(WIN32)
  list(APPEND VORLANE_LOGIC_SOURCES src/system/files_win.cpp src/system/paths_win.cpp src/system/text_win.cpp)
else()
  list(APPEND VORLANE_LOGIC_SOURCES src/system/files.cpp src/system/paths.cpp)
endif()
list(TRANSFORM VORLANE_LOGIC_SOURCES PREPEND "${VORLANE_ROOT}/")

# The commands of vorlane-cli, a library on the logic; its main() is apart.
set(VORLANE_CLI_SOURCES
  src/cli/archive.cpp
  src/cli/check.cpp
  src/cli/cli.cpp
  src/cli/convert.cpp
  src/cli/explain.cpp
  src/cli/session.cpp
  src/cli/speech.cpp)
list(TRANSFORM VORLANE_CLI_SOURCES PREPEND "${VORLANE_ROOT}/")

# The About window's picture is the file data/about.gif, compiled in as bytes.
set(about_gif "${VORLANE_ROOT}/data/about.gif")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${about_gif}")
file(READ "${about_gif}" about_hex HEX)
string(REGEX REPLACE "(..)" "0x\\1," about_bytes "${about_hex}")
string(REGEX REPLACE "((0x..,){16})" "\\1\n    " about_bytes "${about_bytes}")
file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/generated/about_picture.cpp" @ONLY CONTENT
"// The bytes of data/about.gif, written by the build.
#include \"form/about_form.h\"

namespace {
constexpr std::uint8_t Picture[] = {
    @about_bytes@
};
}  // namespace

std::span<const std::uint8_t> About_Picture() { return Picture; }
")
list(APPEND VORLANE_LOGIC_SOURCES "${CMAKE_CURRENT_BINARY_DIR}/generated/about_picture.cpp")

# The control table is the text src/form/controls.txt, compiled in as it stands.
set(controls_text "${VORLANE_ROOT}/src/form/controls.txt")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${controls_text}")
file(READ "${controls_text}" controls_content)
file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/generated/controls_text.cpp" @ONLY CONTENT
"// The text of src/form/controls.txt, written by the build.
#include \"form/control_table.h\"

std::string_view Controls_Text() {
  return R\"controls(@controls_content@)controls\";
}
")
list(APPEND VORLANE_LOGIC_SOURCES "${CMAKE_CURRENT_BINARY_DIR}/generated/controls_text.cpp")
