# Renders the icon at every size that desktops ask for, to where it is installed, and gives the program those that its windows
# show.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(icon_folder "${PROJECT_SOURCE_DIR}/packaging/icon")

foreach(size IN ITEMS 16 22 24 32 48 64 96 128 256 512)
  set(drawing "${icon_folder}/tarnquill.svg")
  if(size LESS_EQUAL 32)
    set(drawing "${icon_folder}/tarnquill-small.svg")
  endif()
  set(folder "${TARNQUILL_SHARE_DIRECTORY}/icons/hicolor/${size}x${size}/apps")
  set(picture "${folder}/${TARNQUILL_ID}.png")
  add_custom_command(
    OUTPUT "${picture}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}"
    COMMAND "${RSVG_CONVERT}" --width ${size} --height ${size} --output "${picture}" "${drawing}"
    DEPENDS "${drawing}"
    VERBATIM)
  list(APPEND icon_pictures "${picture}")
  if(size LESS_EQUAL 128)
    set_source_files_properties("${picture}" PROPERTIES QT_RESOURCE_ALIAS ${size}.png)
    list(APPEND icon_window_pictures "${picture}")
  endif()
endforeach()
add_custom_target(icon_pictures ALL DEPENDS ${icon_pictures})

tarnquill_library(application_icon tarnquill_qt_settings SOURCES ApplicationIcon.cpp LINKS Qt6::Gui)
qt_add_resources(application_icon application_icon PREFIX /icon FILES ${icon_window_pictures} OPTIONS -no-compress)
