# Lays the font metric files of the PDF writer beside the programs, in bin/Fonts.

find_path(QUILLARY_FONT_METRICS NimbusSans-Regular.afm
  PATHS /usr/share/fonts/type1/urw-base35 /usr/share/fonts
  PATH_SUFFIXES urw-base35 type1/urw-base35
  DOC "Folder with the metric files of Debian's fonts-urw-base35")
if(NOT QUILLARY_FONT_METRICS)
  message(FATAL_ERROR "The PDF writer needs the font metric files of Debian's fonts-urw-base35")
endif()

set(QUILLARY_FONTS_FOLDER ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Fonts)
add_custom_command(
  OUTPUT ${QUILLARY_FONTS_FOLDER}/.laid
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${QUILLARY_FONT_METRICS} -DTARGET=${QUILLARY_FONTS_FOLDER}
    -P ${CMAKE_CURRENT_LIST_DIR}/LayFonts.cmake
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/LayFonts.cmake
  COMMENT "Laying the font metric files"
  VERBATIM)
add_custom_target(quillary_fonts ALL DEPENDS ${QUILLARY_FONTS_FOLDER}/.laid)
