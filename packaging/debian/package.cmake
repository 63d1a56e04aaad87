# What the Debian package installs and needs; packaging/debian/build.sh makes it.
include(GNUInstallDirs)
set(debian ${CMAKE_CURRENT_LIST_DIR})

configure_file(${debian}/tezgah.metainfo.xml.in ${CMAKE_BINARY_DIR}/tezgah.metainfo.xml @ONLY)
install(PROGRAMS ${debian}/tezgah-dukkan DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${debian}/tezgah.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${debian}/../tezgah.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${CMAKE_BINARY_DIR}/tezgah.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${PROJECT_SOURCE_DIR}/docs/kilavuz.md ${PROJECT_SOURCE_DIR}/docs/kurulum.md
    ${PROJECT_SOURCE_DIR}/docs/sunucu.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${debian}/copyright
    DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/resimler DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/demo/sqlserver
    DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN *.sql)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tezgah)
set(CPACK_PACKAGE_CONTACT "Tezgâh <tezgah@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "barcode labels and quick sales for small shops")
set(CPACK_PACKAGE_DESCRIPTION
    "The shop floor's front end to an accounting system kept in Microsoft SQL Server: finds stocks,
 prints sheets of labels and sells at a till with three parallel sale lists. Turkish on screen.
 It starts with an embedded demo shop.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, qt6-translations-l10n, xdg-user-dirs")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups-client, tdsodbc, fonts-liberation")
set(CPACK_STRIP_FILES ON)
include(CPack)
