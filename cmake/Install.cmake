# What `cmake --install` lays down and what the Debian package holds. The sources lie in packaging/.

include(GNUInstallDirs)
find_program(GZIP gzip REQUIRED)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(packaging_build ${CMAKE_BINARY_DIR}/packaging)
set(app_id org.quorrin.mapmaker)
set(app_data ${CMAKE_INSTALL_DATADIR}/quorrin-map-maker)

# Manual pages and metainfo bear the date of the version.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${packaging}/debian/control)
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md release_date REGEX "^## ${PROJECT_VERSION} \\(.*\\)$")
string(REGEX REPLACE ".*\\((.*)\\)" "\\1" release_date "${release_date}")
if(NOT release_date)
  message(FATAL_ERROR "CHANGELOG.md has no heading with version ${PROJECT_VERSION} and its date")
endif()

# The library with the pictures is nobody else's, so it lies in a folder of the program's own. Were that straight under lib,
# cpack would let the package call ldconfig.
set(art_library_folder ${CMAKE_INSTALL_LIBDIR}/quorrin-map-maker)
if(CMAKE_LIBRARY_ARCHITECTURE AND CMAKE_INSTALL_LIBDIR STREQUAL lib)
  set(art_library_folder lib/${CMAKE_LIBRARY_ARCHITECTURE}/quorrin-map-maker)
endif()
cmake_path(ABSOLUTE_PATH art_library_folder BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE art_library_place)
file(RELATIVE_PATH to_art_library ${CMAKE_INSTALL_FULL_BINDIR} ${art_library_place})
set_target_properties(quorrin-map-maker quorrin-map-batch PROPERTIES INSTALL_RPATH $ORIGIN/${to_art_library})
install(TARGETS quorrin-map-maker quorrin-map-batch)
install(TARGETS quorrin_art LIBRARY DESTINATION ${art_library_folder})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/ DESTINATION ${app_data}/samples FILES_MATCHING PATTERN *.qrnm)

# The desktop: menu entry, file type, thumbnails, icons, software centre.
configure_file(${packaging}/${app_id}.metainfo.xml.in ${packaging_build}/${app_id}.metainfo.xml @ONLY)
install(FILES ${packaging}/${app_id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/${app_id}.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME ${app_id}.xml)
install(FILES ${packaging}/${app_id}.thumbnailer DESTINATION ${CMAKE_INSTALL_DATADIR}/thumbnailers)
install(FILES ${packaging_build}/${app_id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(art_pages ${PROJECT_SOURCE_DIR}/resources/art/pages)
set(app_drawings ${art_pages}/Icon128.svg ${art_pages}/Icon32.svg)
set(map_drawings ${packaging}/application-x-quorrin-map.svg ${packaging}/application-x-quorrin-map-small.svg)
set(symbolic_drawing ${packaging}/${app_id}-symbolic.svg)
list(JOIN app_drawings "," app_pair)
list(JOIN map_drawings "," map_pair)
set(icon_stylesheet ${PROJECT_SOURCE_DIR}/resources/art/colour.css)
add_custom_command(
  OUTPUT ${packaging_build}/icons.stamp
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${packaging_build}/hicolor
  COMMAND ${QUORRIN_ART_PYTHON} ${packaging}/make_icons.py --out ${packaging_build}/hicolor --stylesheet ${icon_stylesheet}
          apps/${app_id}=${app_pair} apps/${app_id}-symbolic=${symbolic_drawing}
          mimetypes/application-x-quorrin-map=${map_pair}
  COMMAND ${CMAKE_COMMAND} -E touch ${packaging_build}/icons.stamp
  DEPENDS ${packaging}/make_icons.py ${icon_stylesheet} ${app_drawings} ${map_drawings} ${symbolic_drawing}
  COMMENT "Drawing the icons"
  VERBATIM)
set(packaging_outputs ${packaging_build}/icons.stamp)
install(DIRECTORY ${packaging_build}/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)

# The terminal: manual pages and completion.
function(install_compressed FILE DESTINATION NAME)
  add_custom_command(
    OUTPUT ${packaging_build}/${NAME}.gz
    COMMAND ${GZIP} -9nc ${FILE} > ${packaging_build}/${NAME}.gz
    DEPENDS ${FILE})
  set(packaging_outputs ${packaging_outputs} ${packaging_build}/${NAME}.gz PARENT_SCOPE)
  install(FILES ${packaging_build}/${NAME}.gz DESTINATION ${DESTINATION})
endfunction()
foreach(page quorrin-map-maker.1 quorrin-map-batch.1)
  configure_file(${packaging}/${page}.in ${packaging_build}/${page} @ONLY)
  install_compressed(${packaging_build}/${page} ${CMAKE_INSTALL_MANDIR}/man1 ${page})
endforeach()
install(FILES ${packaging}/quorrin-map-batch.bash-completion
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME quorrin-map-batch)

# The papers that Debian asks for.
set(app_doc ${CMAKE_INSTALL_DATADIR}/doc/quorrin-map-maker)
install_compressed(${packaging}/debian/changelog ${app_doc} changelog)
install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${app_doc} NEWS)
install(FILES ${packaging}/debian/copyright DESTINATION ${app_doc})

add_custom_target(packaging ALL DEPENDS ${packaging_outputs})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorrin-map-maker)
set(CPACK_PACKAGE_CONTACT "The Quorrin Map Maker makers <support@quorrin.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://quorrin.example)
file(READ ${packaging}/debian/control control)
string(REGEX MATCH "\nDescription: ([^\n]*)\n(.*)\n" description "${control}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${CMAKE_MATCH_1}")
string(REGEX REPLACE "(^|\n) " "\\1" CPACK_PACKAGE_DESCRIPTION "${CMAKE_MATCH_2}")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR})
# The font of every text that the program draws.
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-dejavu-core)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")

# The source archive holds what git holds.
set(CPACK_SOURCE_GENERATOR TXZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME quorrin-map-maker-${PROJECT_VERSION})
set(CPACK_SOURCE_IGNORE_FILES "/\\\\.git(/|$)" "${CMAKE_SOURCE_DIR}/build[^/]*/" "/art-preview/" "/__pycache__/")
include(CPack)
