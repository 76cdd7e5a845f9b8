# The handbook: HTML of its pages, of the documents to which it sends its readers, and the pictures
# that they show. They stand to each other as in docs/, so that a link holds in either place.

set(documents share/doc/tqx7716-console)

file(GLOB pages CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/docs
  ${PROJECT_SOURCE_DIR}/docs/handbook/*.md
  ${PROJECT_SOURCE_DIR}/docs/hardware.md
  ${PROJECT_SOURCE_DIR}/docs/simulated-board.md)

set(page_maker ${CMAKE_CURRENT_SOURCE_DIR}/handbook/page.cmake)
set(pictures "")
foreach(page IN LISTS pages)
  set(source ${PROJECT_SOURCE_DIR}/docs/${page})
  cmake_path(REPLACE_EXTENSION page html)
  tqx_install_made(${documents}/${page}
    COMMAND ${CMAKE_COMMAND} -D CMARK=${TQX_CMARK} -D PAGE=${source}
      -D HTML=${PROJECT_BINARY_DIR}/${documents}/${page} -P ${page_maker}
    DEPENDS ${source} ${page_maker} ${CMAKE_CURRENT_SOURCE_DIR}/handbook/page.html.in)

  # A page that changes may show another picture.
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  file(READ ${source} text)
  string(REGEX MATCHALL "pictures/[A-Za-z0-9@._-]+\\.png" shown "${text}")
  list(APPEND pictures ${shown})
endforeach()

list(REMOVE_DUPLICATES pictures)
foreach(picture IN LISTS pictures)
  set(source ${PROJECT_SOURCE_DIR}/docs/${picture})
  tqx_install_made(${documents}/${picture}
    COMMAND ${CMAKE_COMMAND} -E copy ${source} ${PROJECT_BINARY_DIR}/${documents}/${picture}
    DEPENDS ${source})
endforeach()

set(style ${CMAKE_CURRENT_SOURCE_DIR}/handbook/handbook.css)
tqx_install_made(${documents}/handbook/handbook.css
  COMMAND ${CMAKE_COMMAND} -E copy ${style}
    ${PROJECT_BINARY_DIR}/${documents}/handbook/handbook.css
  DEPENDS ${style})
