# Lays the font metric files of the PDF writer, and the faces of texts beyond WinAnsi, beside the
# programs, in bin/Fonts.

find_path(QUILLARY_FONT_METRICS NimbusSans-Regular.afm
  PATHS /usr/share/fonts/type1/urw-base35 /usr/share/fonts
  PATH_SUFFIXES urw-base35 type1/urw-base35
  DOC "Folder with the metric files of Debian's fonts-urw-base35")
if(NOT QUILLARY_FONT_METRICS)
  message(FATAL_ERROR "The PDF writer needs the font metric files of Debian's fonts-urw-base35")
endif()
foreach(face IN ITEMS NotoSans-Regular DejaVuSans DroidSansFallbackFull DroidSansFallback)
  find_path(QUILLARY_FACES_${face} ${face}.ttf
    PATHS /usr/share/fonts/truetype/noto /usr/share/fonts/truetype/dejavu
      /usr/share/fonts/truetype/droid /usr/share/fonts-droid-fallback/truetype /usr/share/fonts
    DOC "Folder of the face ${face}")
  if(NOT QUILLARY_FACES_${face})
    message(FATAL_ERROR "The PDF writer needs the face ${face}; Debian has it in fonts-noto-core, "
      "fonts-dejavu-core and fonts-droid-fallback")
  endif()
  list(APPEND QUILLARY_FACE_FOLDERS ${QUILLARY_FACES_${face}})
endforeach()
set(QUILLARY_FACE_LIST ${QUILLARY_FACE_FOLDERS})
list(JOIN QUILLARY_FACE_FOLDERS ":" QUILLARY_FACE_FOLDERS)

set(QUILLARY_FONTS_FOLDER ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Fonts)
add_custom_command(
  OUTPUT ${QUILLARY_FONTS_FOLDER}/.laid
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${QUILLARY_FONT_METRICS} -DFACES=${QUILLARY_FACE_FOLDERS}
    -DTARGET=${QUILLARY_FONTS_FOLDER} -P ${CMAKE_CURRENT_LIST_DIR}/LayFonts.cmake
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/LayFonts.cmake
  COMMENT "Laying the font metric files and faces"
  VERBATIM)
add_custom_target(quillary_fonts ALL DEPENDS ${QUILLARY_FONTS_FOLDER}/.laid)
