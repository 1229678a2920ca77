# Compiles the pages of one language into one HTML help file.
#
#   cmake -D CHMCMD=<compiler> -D SOURCE=<this folder> -D FOLDER=<language> -D IDENTIFIER=<number>
#         -D WORK=<folder for what is in between> -D OUTPUT=<file.chm> -P compile.cmake
#
# The compiler takes three more files beside the pages: the project (.hhp), the contents (.hhc) and
# the index (.hhk). All three are made here from the pages, whose titles become the entries of the
# contents and whose headings <h2> become the entries below. Each such heading gets an anchor.

set(pages index connect file sms mms ringtone picture theme movie calendar phonebook sync)

set(head [[<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">
<html><head><meta http-equiv="Content-Type" content="text/html; charset=utf-8"></head><body>
]])
set(tail "</body></html>\n")
set(contents "${head}<ul>\n")
set(index "${head}<ul>\n")
set(files "")

# Appends one entry to the contents and to the index. `title` is HTML.
macro(add_entry title local)
  string(REGEX REPLACE "<[^>]*>" "" name "${title}")
  string(REPLACE "\"" "&quot;" name "${name}")
  string(CONCAT entry "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"${name}\">"
    "<param name=\"Local\" value=\"${local}\"></object>\n")
  string(APPEND contents "${entry}")
  string(APPEND index "${entry}")
endmacro()

# Adds the entry of each <h2> in `html`, and its anchor to the page.
macro(add_sections page)
  set(number 0)
  set(before "")
  string(FIND "${html}" "<h2>" at)
  while(NOT at EQUAL -1)
    math(EXPR number "${number} + 1")
    string(SUBSTRING "${html}" 0 ${at} passed)
    string(SUBSTRING "${html}" ${at} -1 html)
    string(FIND "${html}" "</h2>" end)
    string(SUBSTRING "${html}" 0 ${end} title)
    string(SUBSTRING "${html}" 4 -1 html)
    string(APPEND before "${passed}<h2 id=\"section${number}\">")
    add_entry("${title}" "${page}.html#section${number}")
    string(FIND "${html}" "<h2>" at)
  endwhile()
  string(PREPEND html "${before}")
endmacro()

file(REMOVE_RECURSE ${WORK})
foreach(page ${pages})
  if(NOT EXISTS ${SOURCE}/${FOLDER}/${page}.html)
    message(FATAL_ERROR "The help page ${FOLDER}/${page}.html is missing.")
  endif()
  file(READ ${SOURCE}/${FOLDER}/${page}.html html)
  if(NOT html MATCHES "<title>([^<]+)</title>")
    message(FATAL_ERROR "The help page ${FOLDER}/${page}.html has no title.")
  endif()
  set(title "${CMAKE_MATCH_1}")
  if(page STREQUAL index)
    set(help_title "${title}")
  endif()
  add_entry("${title}" ${page}.html)
  string(APPEND contents "<ul>\n")
  add_sections(${page})
  string(APPEND contents "</ul>\n")
  file(WRITE ${WORK}/${page}.html "${html}")
  string(APPEND files "${page}.html\n")
endforeach()

file(GLOB shared RELATIVE ${SOURCE} ${SOURCE}/*.css ${SOURCE}/pictures/*.png)
foreach(file ${shared})
  cmake_path(GET file PARENT_PATH folder)
  file(COPY ${SOURCE}/${file} DESTINATION ${WORK}/${folder})
  string(APPEND files "${file}\n")
endforeach()

file(WRITE ${WORK}/contents.hhc "${contents}</ul>\n${tail}")
file(WRITE ${WORK}/index.hhk "${index}</ul>\n${tail}")
file(WRITE ${WORK}/project.hhp "[OPTIONS]
Compatibility=1.1 or later
Compiled file=help.chm
Contents file=contents.hhc
Index file=index.hhk
Default topic=index.html
Title=${help_title}
Language=${IDENTIFIER}

[FILES]
${files}")

execute_process(COMMAND ${CHMCMD} --no-html-scan project.hhp WORKING_DIRECTORY ${WORK}
  OUTPUT_VARIABLE report ERROR_VARIABLE report RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR NOT EXISTS ${WORK}/help.chm)
  message(FATAL_ERROR "The help of ${FOLDER} was not compiled:\n${report}")
endif()
file(COPY_FILE ${WORK}/help.chm ${OUTPUT})
