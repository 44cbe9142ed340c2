# Makes the help in the build folder, where the program finds it: the pages of resources/help, with pictures drawn by
# the program itself.

file(GLOB help_tool_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tools/help/*.cpp)
add_executable(help-pictures EXCLUDE_FROM_ALL ${help_tool_sources})
target_link_libraries(help-pictures PRIVATE quorrin_desktop)

set(QUORRIN_HELP_DIR ${CMAKE_BINARY_DIR}/help)
set(help_map "${PROJECT_SOURCE_DIR}/samples/The Old Mine.qrnm")
set(help_objects ${CMAKE_BINARY_DIR}/help-objects.tsv)
add_custom_command(
  OUTPUT ${help_objects}
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${QUORRIN_HELP_DIR}/images
  COMMAND ${CMAKE_COMMAND} -E make_directory ${QUORRIN_HELP_DIR}
  # Qt's own caches live until the end of a program and are no leaks of ours.
  COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
          $<TARGET_FILE:help-pictures> ${help_map} ${QUORRIN_HELP_DIR}/images ${help_objects}
  DEPENDS help-pictures ${help_map}
  COMMENT "Drawing the pictures of the help"
  VERBATIM)

set(help_source ${PROJECT_SOURCE_DIR}/resources/help)
set(help_script ${PROJECT_SOURCE_DIR}/tools/help/pages.py)
file(GLOB help_pages CONFIGURE_DEPENDS ${help_source}/*)
add_custom_command(
  OUTPUT ${CMAKE_BINARY_DIR}/help.stamp
  COMMAND ${QUORRIN_ART_PYTHON} ${help_script} ${help_source} ${help_objects} ${QUORRIN_HELP_DIR}
  COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/help.stamp
  DEPENDS ${help_script} ${help_pages} ${help_objects}
  COMMENT "Making the help"
  VERBATIM)
add_custom_target(help_pages ALL DEPENDS ${CMAKE_BINARY_DIR}/help.stamp)

# An installed program opens index.html; the pages lead back to Index.html.
include(GNUInstallDirs)
set(help_destination ${CMAKE_INSTALL_DATADIR}/quorrin-map-maker/help)
install(DIRECTORY ${QUORRIN_HELP_DIR}/ DESTINATION ${help_destination})
install(FILES ${QUORRIN_HELP_DIR}/Index.html DESTINATION ${help_destination} RENAME index.html)
