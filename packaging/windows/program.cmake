# What tezgah.exe holds beside the code: icon, version, manifest, and the toolkit's own texts in
# Turkish, which lie in a folder on other systems.
set(here ${PROJECT_SOURCE_DIR}/packaging/windows)
set(made ${PROJECT_BINARY_DIR}/windows)
configure_file(${here}/tezgah.rc ${made}/tezgah.rc @ONLY)
configure_file(${here}/tezgah.manifest ${made}/tezgah.manifest @ONLY)
add_custom_command(OUTPUT ${made}/tezgah.ico
    COMMAND ${here}/make_icon.sh ${PROJECT_SOURCE_DIR}/packaging/tezgah.svg ${made}/tezgah.ico
    DEPENDS ${here}/make_icon.sh ${PROJECT_SOURCE_DIR}/packaging/tezgah.svg)
enable_language(RC)
set_source_files_properties(${made}/tezgah.rc PROPERTIES
    OBJECT_DEPENDS "${made}/tezgah.ico;${made}/tezgah.manifest")
target_sources(tezgah PRIVATE ${made}/tezgah.rc)
set_target_properties(tezgah PROPERTIES WIN32_EXECUTABLE ON)

set(texts ${QT_HOST_PATH}/share/qt6/translations/qtbase_tr.qm)
file(WRITE ${made}/qt.conf "[Paths]\nTranslations=:/ceviri\n")
set_source_files_properties(${texts} PROPERTIES QT_RESOURCE_ALIAS qtbase_tr.qm)
set_source_files_properties(${made}/qt.conf PROPERTIES QT_RESOURCE_ALIAS qt.conf)
qt_add_resources(tezgah qt_texts PREFIX /ceviri FILES ${texts})
qt_add_resources(tezgah qt_paths PREFIX /qt/etc FILES ${made}/qt.conf)
