# The installed layout and the Debian package of a till.
#
#   /opt/zarvel          the program folder: zarvel, zarvel-demo; the terminal's user writes log/
#                        and config.ini here, so the folder belongs to the group zarvel (mode 2775)
#   /etc/tarvex          the machine folder, empty: the program writes SERVER.ini on its first start
#   /opt/centralis       the updater's folder, empty: the updater comes with its own installer
#   /var/lib/zarvel      a place for the demo database made by zarvel-demo
#   /usr/bin             zarvel, a launcher of both programs, and the link zarvel-demo
#   /usr/share/...       desktop entry, icon, an autostart example
#
# Files are owned by root in the package; the maintainer scripts create the group and give it the
# folders above through dpkg-statoverride, so upgrades keep the modes and a purge takes them back.

set(ZARVEL_PROGRAM_DIR opt/zarvel)
set(ZARVEL_WRITABLE_DIRS /opt/zarvel /etc/tarvex /opt/centralis /var/lib/zarvel)

install(TARGETS zarvel zarvel-demo RUNTIME DESTINATION ${ZARVEL_PROGRAM_DIR})
# The folders the package creates empty; the maintainer scripts give them their group and mode.
foreach(folder IN ITEMS etc/tarvex opt/centralis var/lib/zarvel)
    install(DIRECTORY DESTINATION ${folder})
endforeach()

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
# /usr/bin/zarvel starts /opt/zarvel/zarvel with the group's umask; /usr/bin/zarvel-demo is a link
# to it. The program finds its folder through its own executable, never through the launcher.
configure_file(${packaging}/launcher.sh.in ${CMAKE_CURRENT_BINARY_DIR}/package-links/zarvel @ONLY)
install(PROGRAMS ${CMAKE_CURRENT_BINARY_DIR}/package-links/zarvel DESTINATION usr/bin)
file(CREATE_LINK zarvel ${CMAKE_CURRENT_BINARY_DIR}/package-links/zarvel-demo SYMBOLIC)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/package-links/zarvel-demo DESTINATION usr/bin)
install(FILES ${packaging}/zarvel.desktop DESTINATION usr/share/applications)
install(FILES ${packaging}/zarvel.svg DESTINATION usr/share/icons/hicolor/scalable/apps)
# Beside the program's data rather than in doc/, which slim installs leave out.
install(FILES ${packaging}/zarvel-autostart.desktop DESTINATION usr/share/zarvel)
install(FILES ${packaging}/copyright DESTINATION usr/share/doc/zarvel)

# Maintainer scripts, with the list of writable folders filled in.
string(REPLACE ";" " " ZARVEL_WRITABLE_DIRS_TEXT "${ZARVEL_WRITABLE_DIRS}")
set(ZARVEL_GROUP zarvel)
foreach(script IN ITEMS postinst postrm)
    configure_file(${packaging}/${script}.in ${CMAKE_CURRENT_BINARY_DIR}/debian/${script} @ONLY
                   FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                    WORLD_READ WORLD_EXECUTE)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zarvel)
set(CPACK_PACKAGE_VENDOR "Zarvel")
set(CPACK_PACKAGE_CONTACT "Zarvel <dev@zarvel.local>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Table-service front end for bars and restaurants")
set(CPACK_PACKAGE_DESCRIPTION "One process per till or waiter terminal, all terminals on the back \
office's SQL database (SQL Server through FreeTDS, PostgreSQL, or an SQLite file). Ships zarvel-demo, which \
makes the database of a small bar to try a till without the back office.")
set(CPACK_PACKAGING_INSTALL_PREFIX /)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://zarvel.local")
# The libraries the programs link (libc, libstdc++, Qt) come from dpkg-shlibdeps; the ones loaded
# at run time are named here: the database drivers, the ODBC manager and FreeTDS, the fonts the
# screens and tickets are drawn in, and adduser for the group.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "libqt6sql6-sqlite, libqt6sql6-odbc, libqt6sql6-psql, unixodbc, tdsodbc, \
fonts-liberation, fonts-dejavu-core, adduser")
# Tickets and slips go to printers that CUPS knows; the back office's machine may hold them.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${CMAKE_CURRENT_BINARY_DIR}/debian/postinst ${CMAKE_CURRENT_BINARY_DIR}/debian/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
