# Run as a script:
#   cmake -DSOURCE=<folder of the font package> -DFACES=<folders of faces, ":" between them>
#     -DTARGET=<folder to fill> -P LayFonts.cmake
#
# Copies the faces that texts beyond WinAnsi are set in; a script whose face is missing there cannot
# be set.
#
# Lays the metric files of the faces that the PDF writer names. The faces come from fonts that agree
# in every width with the built-in ones of a PDF viewer. Text is written in WinAnsiEncoding, while
# the package's files number the characters of text faces otherwise (an apostrophe and all accented
# letters would be measured as something else), so these tables are rewritten in the order of
# WinAnsiEncoding. The symbol faces keep the numbers of their own encoding.

cmake_minimum_required(VERSION 3.25)

# The glyph names of WinAnsiEncoding, 32 to 255 (PDF Reference 1.3, appendix D). An open code shows
# a bullet, 160 a space and 173 a hyphen.
set(WIN_ANSI
  space exclam quotedbl numbersign dollar percent ampersand quotesingle parenleft parenright
  asterisk plus comma hyphen period slash zero one two three four five six seven eight nine colon
  semicolon less equal greater question at A B C D E F G H I J K L M N O P Q R S T U V W X Y Z
  bracketleft backslash bracketright asciicircum underscore grave a b c d e f g h i j k l m n o p q
  r s t u v w x y z braceleft bar braceright asciitilde bullet Euro bullet quotesinglbase florin
  quotedblbase ellipsis dagger daggerdbl circumflex perthousand Scaron guilsinglleft OE bullet
  Zcaron bullet bullet quoteleft quoteright quotedblleft quotedblright bullet endash emdash tilde
  trademark scaron guilsinglright oe bullet zcaron Ydieresis space exclamdown cent sterling currency
  yen brokenbar section dieresis copyright ordfeminine guillemotleft logicalnot hyphen registered
  macron degree plusminus twosuperior threesuperior acute mu paragraph periodcentered cedilla
  onesuperior ordmasculine guillemotright onequarter onehalf threequarters questiondown Agrave
  Aacute Acircumflex Atilde Adieresis Aring AE Ccedilla Egrave Eacute Ecircumflex Edieresis Igrave
  Iacute Icircumflex Idieresis Eth Ntilde Ograve Oacute Ocircumflex Otilde Odieresis multiply Oslash
  Ugrave Uacute Ucircumflex Udieresis Yacute Thorn germandbls agrave aacute acircumflex atilde
  adieresis aring ae ccedilla egrave eacute ecircumflex edieresis igrave iacute icircumflex
  idieresis eth ntilde ograve oacute ocircumflex otilde odieresis divide oslash ugrave uacute
  ucircumflex udieresis yacute thorn ydieresis)

set(TEXT_FACES
  Helvetica=NimbusSans-Regular Helvetica-Oblique=NimbusSans-Italic
  Helvetica-Bold=NimbusSans-Bold Helvetica-BoldOblique=NimbusSans-BoldItalic
  Courier=NimbusMonoPS-Regular Courier-Oblique=NimbusMonoPS-Italic
  Courier-Bold=NimbusMonoPS-Bold Courier-BoldOblique=NimbusMonoPS-BoldItalic
  Times-Roman=NimbusRoman-Regular TimesRoman=NimbusRoman-Regular TimesItalic=NimbusRoman-Italic
  Times-Bold=NimbusRoman-Bold Times-BoldItalic=NimbusRoman-BoldItalic)
set(SYMBOL_FACES Symbol=StandardSymbolsPS ZapfDingbats=D050000L)

function(read_metrics file header characters)
  if(NOT EXISTS ${SOURCE}/${file}.afm)
    message(FATAL_ERROR "${SOURCE}/${file}.afm is missing; Debian's fonts-urw-base35 has it")
  endif()
  file(READ ${SOURCE}/${file}.afm text)
  # Brackets and semicolons mean something to lists.
  string(REPLACE ";" "@" text "${text}")
  string(REGEX REPLACE "StartCharMetrics.*" "" head "${text}")
  string(REGEX MATCHALL "C -?[0-9]+ @ WX [0-9]+ @ N [A-Za-z0-9.]+ @" lines "${text}")
  set(${header} "${head}" PARENT_SCOPE)
  set(${characters} "${lines}" PARENT_SCOPE)
endfunction()

function(write_metrics face header table count)
  string(CONCAT text "${header}" "StartCharMetrics ${count}\n" "${table}"
    "EndCharMetrics\nEndFontMetrics\n")
  string(REPLACE "@" ";" text "${text}")
  file(WRITE ${TARGET}/${face}.afm "${text}")
endfunction()

function(lay_text_face face file)
  read_metrics(${file} header lines)
  foreach(line IN LISTS lines)
    if(line MATCHES "WX ([0-9]+) @ N ([A-Za-z0-9.]+) @")
      set(width_${CMAKE_MATCH_2} ${CMAKE_MATCH_1})
    endif()
  endforeach()
  string(REGEX REPLACE "EncodingScheme [A-Za-z]+" "EncodingScheme WinAnsiEncoding"
    header "${header}")
  set(table "")
  set(code 32)
  foreach(name IN LISTS WIN_ANSI)
    if(NOT DEFINED width_${name})
      message(FATAL_ERROR "${file}.afm has no ${name}")
    endif()
    string(APPEND table "C ${code} @ WX ${width_${name}} @ N ${name} @\n")
    math(EXPR code "${code} + 1")
  endforeach()
  write_metrics(${face} "${header}" "${table}" 224)
endfunction()

function(lay_symbol_face face file)
  read_metrics(${file} header lines)
  list(FILTER lines EXCLUDE REGEX "^C -1")
  list(LENGTH lines count)
  list(JOIN lines "\n" table)
  # These faces have one shape only, whatever style is asked for.
  foreach(style "" -Oblique -Bold -BoldOblique)
    write_metrics(${face}${style} "${header}" "${table}\n" ${count})
  endforeach()
endfunction()

foreach(pair IN LISTS TEXT_FACES)
  string(REPLACE "=" ";" pair ${pair})
  lay_text_face(${pair})
endforeach()
foreach(pair IN LISTS SYMBOL_FACES)
  string(REPLACE "=" ";" pair ${pair})
  lay_symbol_face(${pair})
endforeach()
string(REPLACE ":" ";" FACES "${FACES}")
set(SCRIPTS Arabic Hebrew Devanagari Bengali Gurmukhi Gujarati Tamil Telugu Kannada Malayalam Sinhala
  Thai Lao Khmer Myanmar Armenian Georgian Ethiopic Symbols)
set(FACE_FILES NotoSans-Regular NotoSans-Bold NotoSans-Italic NotoSans-BoldItalic DejaVuSans
  DejaVuSans-Bold DejaVuSans-Oblique DejaVuSans-BoldOblique NotoSansSymbols2-Regular
  DroidSansFallbackFull DroidSansFallback)
foreach(script IN LISTS SCRIPTS)
  list(APPEND FACE_FILES NotoSans${script}-Regular NotoSans${script}-Bold)
endforeach()
foreach(folder IN LISTS FACES)
  foreach(face IN LISTS FACE_FILES)
    if(EXISTS ${folder}/${face}.ttf)
      file(COPY_FILE ${folder}/${face}.ttf ${TARGET}/${face}.ttf ONLY_IF_DIFFERENT)
    endif()
  endforeach()
endforeach()
file(TOUCH ${TARGET}/.laid)
