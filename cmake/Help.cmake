# Makes the help in the build folder, where the program finds it: the pages of resources/help, with pictures drawn by
# the program itself.

file(GLOB help_tool_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tools/help/*.cpp)
add_executable(build-help EXCLUDE_FROM_ALL ${help_tool_sources})
target_link_libraries(build-help PRIVATE quorrin_desktop)

set(QUORRIN_HELP_DIR ${CMAKE_BINARY_DIR}/help)
set(help_map "${PROJECT_SOURCE_DIR}/samples/The Old Mine.qrnm")
file(GLOB_RECURSE help_inputs CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/help/*)
add_custom_command(
  OUTPUT ${CMAKE_BINARY_DIR}/help.stamp
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${QUORRIN_HELP_DIR}
  # Qt's own caches live until the end of a program and are no leaks of ours.
  COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
          $<TARGET_FILE:build-help> ${PROJECT_SOURCE_DIR}/resources/help ${help_map} ${QUORRIN_HELP_DIR}
  COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/help.stamp
  DEPENDS build-help ${help_inputs} ${help_map}
  COMMENT "Making the help"
  VERBATIM)
add_custom_target(help_pages ALL DEPENDS ${CMAKE_BINARY_DIR}/help.stamp)

# An installed program opens index.html; the pages lead back to Index.html.
include(GNUInstallDirs)
set(help_destination ${CMAKE_INSTALL_DATADIR}/quorrin-map-maker/help)
install(DIRECTORY ${QUORRIN_HELP_DIR}/ DESTINATION ${help_destination})
install(FILES ${QUORRIN_HELP_DIR}/Index.html DESTINATION ${help_destination} RENAME index.html)
