# Images and style sheets of the base plugin, compiled into one Qt resource
# named "ui_base" (prefix "/": img/... and qss/...).
#
# The images are drawn as SVG in img/ and rendered to the names the code uses
# at build time by tools/svgrender.cpp, so the repository holds no binaries.
# Each entry: <svg source under img/>=<output under img/>@<size>[,<size>...]
# (one size for a PNG, several for the pictures of an ICO).
set(UI_BASE_RESOURCE_DIR "${CMAKE_CURRENT_LIST_DIR}")
set(UI_BASE_IMAGES
  "setting.svg=setting.png@16"
  "about.svg=about.png@16"
  "quit.svg=quit.png@16"
  "test.svg=test.png@16"
  "logo.svg=logo.ico@16,24,32,48,64,128,256"
  "logo.svg=logo.png@64"
  "commonSettingLogo.svg=commonSettingLogo.png@16"
  "home.svg=home.png@16"
  "home_selected.svg=home_selected.png@16"
  "authStatus/normal_normal.svg=authStatus/normal_normal.png@24"
  "authStatus/normal_hover.svg=authStatus/normal_hover.png@24"
  "authStatus/normal_pressed.svg=authStatus/normal_pressed.png@24"
  "authStatus/error_normal.svg=authStatus/error_normal.png@24"
  "authStatus/error_hover.svg=authStatus/error_hover.png@24"
  "authStatus/error_pressed.svg=authStatus/error_pressed.png@24")

function(ui_base_add_resources target)
  set(src "${UI_BASE_RESOURCE_DIR}")
  set(gen "${CMAKE_CURRENT_BINARY_DIR}/ui_base_resources")

  if(NOT TARGET ui_base_svgrender)
    find_package(Qt5 5.15 REQUIRED COMPONENTS Gui Svg)
    add_executable(ui_base_svgrender "${src}/tools/svgrender.cpp")
    set_target_properties(ui_base_svgrender PROPERTIES
      AUTOMOC OFF
      AUTORCC OFF
      RUNTIME_OUTPUT_DIRECTORY "${gen}/tools")
    target_link_libraries(ui_base_svgrender PRIVATE Qt5::Gui Qt5::Svg)
  endif()

  set(qrc_files "")
  set(qrc_depends "")
  foreach(entry IN LISTS UI_BASE_IMAGES)
    string(REGEX MATCH "^([^=]+)=([^@]+)@(.+)$" matched "${entry}")
    if(NOT matched)
      message(FATAL_ERROR "ui_base resources: malformed image entry \"${entry}\"")
    endif()
    set(svg "${src}/img/${CMAKE_MATCH_1}")
    set(out_name "img/${CMAKE_MATCH_2}")
    set(sizes "${CMAKE_MATCH_3}")
    set(out "${gen}/${out_name}")
    get_filename_component(out_dir "${out}" DIRECTORY)
    add_custom_command(
      OUTPUT "${out}"
      COMMAND "${CMAKE_COMMAND}" -E make_directory "${out_dir}"
      COMMAND ui_base_svgrender "${svg}" "${out}" "${sizes}"
      DEPENDS "${svg}" ui_base_svgrender
      COMMENT "Rendering ${out_name}"
      VERBATIM)
    string(APPEND qrc_files "    <file alias=\"${out_name}\">${out}</file>\n")
    list(APPEND qrc_depends "${out}")
  endforeach()

  file(GLOB qss_files CONFIGURE_DEPENDS "${src}/qss/*.qss")
  list(SORT qss_files)
  foreach(qss IN LISTS qss_files)
    get_filename_component(qss_name "${qss}" NAME)
    string(APPEND qrc_files "    <file alias=\"qss/${qss_name}\">${qss}</file>\n")
    list(APPEND qrc_depends "${qss}")
  endforeach()

  # Written at configure time, rewritten only when its content changes.
  set(qrc "${gen}/ui_base.qrc")
  file(CONFIGURE OUTPUT "${qrc}"
       CONTENT "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n  <qresource prefix=\"/\">\n${qrc_files}  </qresource>\n</RCC>\n"
       @ONLY)

  set(qrc_cpp "${gen}/qrc_ui_base.cpp")
  add_custom_command(
    OUTPUT "${qrc_cpp}"
    COMMAND Qt5::rcc --name ui_base --output "${qrc_cpp}" "${qrc}"
    DEPENDS "${qrc}" ${qrc_depends}
    COMMENT "Compiling the ui_base resources"
    VERBATIM)
  set_source_files_properties("${qrc_cpp}" PROPERTIES
    GENERATED TRUE
    SKIP_AUTOMOC ON
    SKIP_AUTOUIC ON
    SKIP_AUTORCC ON)
  target_sources(${target} PRIVATE "${qrc_cpp}")
  target_compile_definitions(${target} PUBLIC UI_BASE_HAS_RESOURCES=1)
endfunction()
