# What a desktop gets besides the programs (the editor and vorlane-cli): the icon, the desktop
# entry, the MIME types of the two file formats, the AppStream description, the manual pages, and
# `cmake --install` to put them under a prefix.
include(GNUInstallDirs)
find_package(Qt6 REQUIRED COMPONENTS Gui)

# The icon is drawn once, in data/vorlane.svg. The build paints a 32-pixel PNG from it: for the
# hicolor theme, and compiled into the program, so that its windows have the icon even when it
# is not installed. A PNG needs no SVG support from Qt, which would be another package.
add_executable(vorlane_render_icon tools/render_icon.cpp)
target_link_libraries(vorlane_render_icon PRIVATE Qt6::Gui)
set(VORLANE_ICON_PNG ${CMAKE_CURRENT_BINARY_DIR}/icon/vorlane.png)
add_custom_command(OUTPUT ${VORLANE_ICON_PNG}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/icon
  COMMAND vorlane_render_icon ${CMAKE_CURRENT_SOURCE_DIR}/data/vorlane.svg ${VORLANE_ICON_PNG} 32
  DEPENDS vorlane_render_icon ${CMAKE_CURRENT_SOURCE_DIR}/data/vorlane.svg
  COMMENT "Painting the icon")
qt_add_resources(vorlane vorlane_icon PREFIX / BASE ${CMAKE_CURRENT_BINARY_DIR}/icon FILES ${VORLANE_ICON_PNG})

install(TARGETS vorlane vorlane-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES data/vorlane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/vorlane.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES data/vorlane.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${VORLANE_ICON_PNG} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/32x32/apps)
# Software centres look the description up by its component id.
install(FILES data/vorlane.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
  RENAME io.github.vorlane.vorlane.metainfo.xml)
# The manual pages name the version in their footer.
foreach(page vorlane.1 vorlane-cli.1)
  configure_file(data/${page} ${CMAKE_CURRENT_BINARY_DIR}/man/${page} @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man/${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
