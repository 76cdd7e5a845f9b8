# The icons as drawings, and as pictures for desktops that do not draw.

foreach(icon IN ITEMS org.tqx7716.Console org.tqx7716.Simulator)
  set(drawing ${CMAKE_CURRENT_SOURCE_DIR}/icons/${icon}.svg)
  install(FILES ${drawing} DESTINATION share/icons/hicolor/scalable/apps)
  foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
    set(picture share/icons/hicolor/${size}x${size}/apps/${icon}.png)
    tqx_install_made(${picture}
      COMMAND ${TQX_RSVG_CONVERT} --width ${size} --height ${size}
        --output ${PROJECT_BINARY_DIR}/${picture} ${drawing}
      DEPENDS ${drawing})
  endforeach()
endforeach()
