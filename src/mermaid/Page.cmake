# The preview's page, as a folder of share/: its own files, the diagram engine from the npm packages, and the typeface
# from its Debian package as a script, because a page that is a file can read no other file.

set(mermaid_page_folder "${TARNQUILL_SHARE_DIRECTORY}/tarnquill/mermaid")
set(mermaid_page_files
    page/engine-support.js
    page/export.js
    page/mermaid-shell.html
    page/shell.js
    page/source-lines.js
    page/themes.js
    page/viewport.js
    "${PROJECT_SOURCE_DIR}/node_modules/@mermaid-js/mermaid-zenuml/dist/mermaid-zenuml.min.js")
set(mermaid_engine "${PROJECT_SOURCE_DIR}/node_modules/mermaid/dist/mermaid.min.js")
foreach(file IN LISTS mermaid_page_files mermaid_engine)
  cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR "${file} is missing: run `npm ci` in ${PROJECT_SOURCE_DIR}")
  endif()
endforeach()

foreach(file IN LISTS mermaid_page_files)
  cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
  cmake_path(GET file FILENAME name)
  add_custom_command(
    OUTPUT "${mermaid_page_folder}/${name}"
    COMMAND "${CMAKE_COMMAND}" -E copy "${file}" "${mermaid_page_folder}/${name}"
    DEPENDS "${file}")
  list(APPEND mermaid_page_outputs "${mermaid_page_folder}/${name}")
endforeach()

add_custom_command(
  OUTPUT "${mermaid_page_folder}/mermaid.min.js"
  COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/page/engine-script" "${mermaid_engine}" "${mermaid_page_folder}/mermaid.min.js"
  DEPENDS page/engine-script "${mermaid_engine}"
  VERBATIM)
list(APPEND mermaid_page_outputs "${mermaid_page_folder}/mermaid.min.js")

find_file(FONT_Inter-Regular.otf Inter-Regular.otf PATHS /usr/share/fonts/opentype/inter REQUIRED)
find_file(FONT_Inter-Bold.otf Inter-Bold.otf PATHS /usr/share/fonts/opentype/inter REQUIRED)
set(mermaid_page_fonts "${FONT_Inter-Regular.otf}" "${FONT_Inter-Bold.otf}")
add_custom_command(
  OUTPUT "${mermaid_page_folder}/inter.js"
  COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/page/font-script" ${mermaid_page_fonts} "${mermaid_page_folder}/inter.js"
  DEPENDS page/font-script ${mermaid_page_fonts}
  VERBATIM)
list(APPEND mermaid_page_outputs "${mermaid_page_folder}/inter.js")

add_custom_target(mermaid_page DEPENDS ${mermaid_page_outputs})
