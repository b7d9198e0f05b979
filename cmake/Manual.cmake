# The user manual: each page of docs/manual as HTML, below share/quillary/manual beside the programs,
# where the installed program finds it too. The target manual_pictures takes the pictures that the
# pages show, with the program that shows the screens; they are made anew when that has changed.
find_program(CMARK cmark-gfm REQUIRED)
set(QUILLARY_MANUAL ${CMAKE_BINARY_DIR}/share/quillary/manual)
file(GLOB manual_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/manual/*.md)
set(manual_pages)
set(manual_pictures)
foreach(source IN LISTS manual_sources)
  get_filename_component(page ${source} NAME_WE)
  add_custom_command(OUTPUT ${QUILLARY_MANUAL}/${page}.html
    COMMAND ${CMAKE_COMMAND} -DCMARK=${CMARK} -DSOURCE=${source}
      -DPAGE=${QUILLARY_MANUAL}/${page}.html -P ${CMAKE_SOURCE_DIR}/cmake/ManualPage.cmake
    DEPENDS ${source} ${CMAKE_SOURCE_DIR}/cmake/ManualPage.cmake VERBATIM)
  list(APPEND manual_pages ${QUILLARY_MANUAL}/${page}.html)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  file(STRINGS ${source} shown REGEX "\\]\\(pictures/")
  foreach(line IN LISTS shown)
    string(REGEX REPLACE ".*\\(pictures/([A-Za-z0-9_-]+)\\.png\\).*" "\\1" picture "${line}")
    list(APPEND manual_pictures ${picture})
  endforeach()
endforeach()
configure_file(${CMAKE_SOURCE_DIR}/docs/manual/manual.css ${QUILLARY_MANUAL}/manual.css COPYONLY)
add_custom_target(manual ALL DEPENDS ${manual_pages})

list(REMOVE_DUPLICATES manual_pictures)
list(JOIN manual_pictures "," manual_pictures)
set(shoot ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen QUILLARY_TODAY=2026-11-02
  $<TARGET_FILE:quillary_shots>)
add_custom_command(OUTPUT ${QUILLARY_MANUAL}/pictures/made
  COMMAND ${shoot} ${QUILLARY_MANUAL}/pictures --pictures ${manual_pictures}
  COMMAND ${shoot} ${QUILLARY_MANUAL}/pictures/dark --dark --pictures ${manual_pictures}
  COMMAND ${CMAKE_COMMAND} -E touch ${QUILLARY_MANUAL}/pictures/made
  DEPENDS quillary_shots ${manual_sources} VERBATIM)
add_custom_target(manual_pictures DEPENDS ${QUILLARY_MANUAL}/pictures/made)
