# The programs and what presents them: man pages, desktop entries, metadata, completion.

# tqx_install_program(TARGET [ID]): with its man page, and with its desktop entry, which is named ID.
function(tqx_install_program target)
  install(TARGETS ${target} RUNTIME DESTINATION bin)
  if(ARGN)
    install(FILES applications/${ARGV1}.desktop DESTINATION share/applications)
  endif()

  configure_file(man/${target}.1.in man/${target}.1 @ONLY)
  tqx_install_gzip(share/man/man1/${target}.1.gz ${CMAKE_CURRENT_BINARY_DIR}/man/${target}.1)
endfunction()

tqx_install_program(tqx7716-console org.tqx7716.Console)
tqx_install_program(tqx7716-simulator org.tqx7716.Simulator)
tqx_install_program(tqx7716)
install(FILES completion/tqx7716 DESTINATION share/bash-completion/completions)
install(FILES metainfo/org.tqx7716.Console.metainfo.xml DESTINATION share/metainfo)
