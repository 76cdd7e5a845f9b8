# Makes one page of HTML.
#
# Usage: cmake -D CMARK=PROGRAM -D PAGE=FILE.md -D HTML=FILE.html -P page.cmake

cmake_minimum_required(VERSION 3.25)

execute_process(
  COMMAND ${CMARK} --extension table --to html ${PAGE}
  OUTPUT_VARIABLE body
  COMMAND_ERROR_IS_FATAL ANY)

if(NOT body MATCHES "<h1>([^\n]*)</h1>")
  message(FATAL_ERROR "${PAGE} has no heading of the first level to take its title from")
endif()
string(REGEX REPLACE "<[^>]*>" "" title "${CMAKE_MATCH_1}")

# Pages name each other as the files that they are in docs/.
string(REGEX REPLACE "(<a href=\"[^\":]*)\\.md([#\"])" "\\1.html\\2" body "${body}")

# The way from this page to the handbook's folder.
cmake_path(GET HTML PARENT_PATH folder)
cmake_path(GET folder FILENAME folder)
set(handbook "")
if(NOT folder STREQUAL "handbook")
  set(handbook "handbook/")
endif()

configure_file(${CMAKE_CURRENT_LIST_DIR}/page.html.in ${HTML} @ONLY)
file(TOUCH_NOCREATE ${HTML})
