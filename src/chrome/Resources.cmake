# The typefaces come from their Debian packages and the icons from the npm package: nothing of them is in the tree.

set(chrome_fonts
    Inter-Regular.otf
    Inter-Medium.otf
    Inter-SemiBold.otf
    Inter-Bold.otf
    JetBrainsMono-Regular.ttf
    JetBrainsMono-Bold.ttf)
foreach(font IN LISTS chrome_fonts)
  find_file(
    FONT_${font} ${font}
    PATHS /usr/share/fonts /usr/local/share/fonts
    PATH_SUFFIXES opentype/inter truetype/jetbrains-mono
    REQUIRED)
  set_source_files_properties("${FONT_${font}}" PROPERTIES QT_RESOURCE_ALIAS ${font})
  list(APPEND chrome_font_files "${FONT_${font}}")
endforeach()
qt_add_resources(chrome chrome_fonts PREFIX /fonts FILES ${chrome_font_files} OPTIONS -no-compress)

set(chrome_symbols
    arrow-down
    arrow-left
    arrow-left-right
    arrow-right
    arrow-right-left
    arrow-up
    arrow-up-down
    braces
    calendar-clock
    check
    chevron-down
    chevron-left
    chevron-right
    chevron-up
    circle-x
    clipboard-copy
    clipboard-paste
    clock
    code-xml
    columns-3
    copy
    download
    eye
    eye-off
    feather
    file
    file-down
    file-search
    file-text
    folder
    folder-open
    folder-plus
    funnel
    globe
    hard-drive
    history
    house
    info
    key-round
    layout-grid
    layout-template
    link
    list
    loader-circle
    maximize
    menu
    minus
    monitor
    package
    panel-left
    plus
    rotate-ccw
    rows-3
    search
    share
    shield-check
    shield-x
    sparkles
    table
    timer-reset
    trash-2
    triangle-alert
    workflow
    x)
set(chrome_symbol_folder "${PROJECT_SOURCE_DIR}/node_modules/lucide-static/icons")
foreach(symbol IN LISTS chrome_symbols)
  set(file "${chrome_symbol_folder}/${symbol}.svg")
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR "${file} is missing: run `npm ci` in ${PROJECT_SOURCE_DIR}")
  endif()
  set_source_files_properties("${file}" PROPERTIES QT_RESOURCE_ALIAS ${symbol}.svg)
  list(APPEND chrome_symbol_files "${file}")
endforeach()
qt_add_resources(chrome chrome_symbols PREFIX /symbols FILES ${chrome_symbol_files})
