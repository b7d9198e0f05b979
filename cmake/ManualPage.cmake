# Makes one page of the manual: cmake -DCMARK=… -DSOURCE=….md -DPAGE=….html -P ManualPage.cmake
execute_process(COMMAND ${CMARK} --unsafe --extension table ${SOURCE}
  OUTPUT_VARIABLE body RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "cmark-gfm failed on ${SOURCE}")
endif()
string(REGEX MATCH "<h1>(.*)</h1>" matched "${body}")
string(REGEX REPLACE "<[^>]*>" "" title "${CMAKE_MATCH_1}")
# Pages link to one another as they lie in the repository.
string(REGEX REPLACE "href=\"([a-z-]+)\\.md" "href=\"\\1.html" body "${body}")
# A picture is a line of its own, which no spacing of lines stretches.
string(REPLACE "<p><img" "<p class=\"picture\"><img" body "${body}")
file(WRITE ${PAGE} "<!DOCTYPE html>
<html lang=\"en\"><head><meta charset=\"utf-8\"><title>${title}</title>
<link rel=\"stylesheet\" type=\"text/css\" href=\"manual.css\"></head>
<body>
${body}</body></html>
")
