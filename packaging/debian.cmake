# The Debian package: `cpack --preset release` leaves it in the build tree's package folder.

install(FILES debian/copyright DESTINATION ${documents})
install(FILES debian/doc-base
  DESTINATION share/doc-base
  RENAME tqx7716-console.tqx7716-console-handbook)
tqx_install_gzip(${documents}/changelog.gz ${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tqx7716-console)
set(CPACK_PACKAGE_CONTACT "TQX7716 console developers <maintainers@tqx7716.example>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/package)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Finds a TQX7716 hardware-monitor chip on an evaluation board at a printer
port or on the SMBus of the machine, and works with it: reads and writes
every register under the names of its bits, watches voltages, temperatures
and fans live with gauges, strip charts and alarm lamps, moves blocks with
or without packet error checking, and reads, writes and erases the EEPROM.
.
The same program on a simulated board is included, for work with no
hardware at hand.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The toolbar's keys are drawings, read by a plugin that no program links.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt6svg6)
# i2c-tools gives the bus nodes to the group i2c; without the two fonts the windows stand in the
# desktop's faces; xdg-utils opens the handbook.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-inter, fonts-jetbrains-mono, i2c-tools, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
include(CPack)
