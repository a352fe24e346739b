# The client's icon, "quorix-gui", drawn from the base plugin's logo.svg:
# PNGs in the usual hicolor sizes rendered at build time (the repository holds
# no binaries), built into `target` as the Qt resource "quorix_gui_icons"
# (":/quorix-gui/icons/<size>.png", for a machine where the icon is not
# installed) and installed into the hicolor theme with the SVG as the
# scalable one.
set(QUORIX_ICON_SOURCE "${CMAKE_SOURCE_DIR}/plugins/base/resources/img/logo.svg")
set(QUORIX_ICON_SIZES 16 22 24 32 48 64 128 256)
set(QUORIX_ICON_NAME "quorix-gui")

function(quorix_add_client_icons target)
  set(gen "${CMAKE_CURRENT_BINARY_DIR}/quorix_gui_icons")
  if(NOT TARGET ui_base_svgrender)
    # The base plugin's resources define the renderer; a tree built without
    # that plugin gets it here.
    find_package(Qt5 5.15 REQUIRED COMPONENTS Gui Svg)
    add_executable(ui_base_svgrender "${CMAKE_SOURCE_DIR}/plugins/base/resources/tools/svgrender.cpp")
    set_target_properties(ui_base_svgrender PROPERTIES AUTOMOC OFF AUTORCC OFF
      RUNTIME_OUTPUT_DIRECTORY "${gen}/tools")
    target_link_libraries(ui_base_svgrender PRIVATE Qt5::Gui Qt5::Svg)
  endif()

  set(qrc_files "")
  set(pngs "")
  foreach(size IN LISTS QUORIX_ICON_SIZES)
    set(png "${gen}/hicolor/${size}x${size}/apps/${QUORIX_ICON_NAME}.png")
    add_custom_command(
      OUTPUT "${png}"
      COMMAND "${CMAKE_COMMAND}" -E make_directory "${gen}/hicolor/${size}x${size}/apps"
      COMMAND ui_base_svgrender "${QUORIX_ICON_SOURCE}" "${png}" "${size}"
      DEPENDS "${QUORIX_ICON_SOURCE}" ui_base_svgrender
      COMMENT "Rendering the ${size}x${size} client icon"
      VERBATIM)
    string(APPEND qrc_files "    <file alias=\"${size}.png\">${png}</file>\n")
    list(APPEND pngs "${png}")
    install(FILES "${png}" DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps")
  endforeach()
  install(FILES "${QUORIX_ICON_SOURCE}" DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps"
    RENAME "${QUORIX_ICON_NAME}.svg")

  set(qrc "${gen}/quorix_gui_icons.qrc")
  file(CONFIGURE OUTPUT "${qrc}"
       CONTENT "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n  <qresource prefix=\"/quorix-gui/icons\">\n${qrc_files}  </qresource>\n</RCC>\n"
       @ONLY)
  set(qrc_cpp "${gen}/qrc_quorix_gui_icons.cpp")
  add_custom_command(
    OUTPUT "${qrc_cpp}"
    COMMAND Qt5::rcc --name quorix_gui_icons --output "${qrc_cpp}" "${qrc}"
    DEPENDS "${qrc}" ${pngs}
    COMMENT "Compiling the client icons"
    VERBATIM)
  set_source_files_properties("${qrc_cpp}" PROPERTIES
    GENERATED TRUE SKIP_AUTOMOC ON SKIP_AUTOUIC ON SKIP_AUTORCC ON)
  target_sources(${target} PRIVATE "${qrc_cpp}")
endfunction()
