# Draws the pictures of resources/art and puts them into a library that both programs share: quorrin_add_art(<target>).

set(QUORRIN_ART_PYTHON /usr/bin/python3 CACHE FILEPATH "Python with numpy, PIL and zstandard")
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
execute_process(COMMAND ${QUORRIN_ART_PYTHON} -c "import numpy, PIL, zstandard" RESULT_VARIABLE art_python_fault ERROR_QUIET)
if(art_python_fault)
  message(FATAL_ERROR "${QUORRIN_ART_PYTHON} lacks numpy, PIL or zstandard (packages python3-numpy, python3-pil, python3-zstandard)")
endif()

set(QUORRIN_ART_DIR ${CMAKE_BINARY_DIR}/art)
set(art_source ${PROJECT_SOURCE_DIR}/resources/art)
file(GLOB_RECURSE art_inputs CONFIGURE_DEPENDS ${art_source}/*.svg ${art_source}/*.css ${art_source}/*.txt
     ${PROJECT_SOURCE_DIR}/tools/art/*.py)

# art.qrc and ArtPictures.inc change only with the list of pictures; the stamp with every picture.
add_custom_command(
  OUTPUT ${QUORRIN_ART_DIR}/stamp
  BYPRODUCTS ${QUORRIN_ART_DIR}/art.qrc ${QUORRIN_ART_DIR}/ArtPictures.inc
  COMMAND ${QUORRIN_ART_PYTHON} ${PROJECT_SOURCE_DIR}/tools/build_art.py
          --source ${art_source} --out ${QUORRIN_ART_DIR}
  COMMAND ${CMAKE_COMMAND} -E touch ${QUORRIN_ART_DIR}/stamp
  DEPENDS ${art_inputs} ${PROJECT_SOURCE_DIR}/tools/build_art.py
  COMMENT "Drawing the pictures"
  VERBATIM)
add_custom_target(art_pictures DEPENDS ${QUORRIN_ART_DIR}/stamp)

# Qt's resource compiler works in two passes: a source with room for the pictures, and their bytes put straight into what
# was compiled of it. As one source they would be 60 megabytes of digits to compile.
set(art_rcc ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0 $<TARGET_FILE:Qt6::rcc> --name art --no-compress)
add_custom_command(
  OUTPUT ${QUORRIN_ART_DIR}/art.cpp
  COMMAND ${art_rcc} --pass 1 -o ${QUORRIN_ART_DIR}/art.cpp ${QUORRIN_ART_DIR}/art.qrc
  DEPENDS ${QUORRIN_ART_DIR}/stamp
  COMMENT "Listing the pictures"
  VERBATIM)
add_library(quorrin_art_room OBJECT ${QUORRIN_ART_DIR}/art.cpp)
set_target_properties(quorrin_art_room PROPERTIES POSITION_INDEPENDENT_CODE ON)
target_link_libraries(quorrin_art_room PRIVATE Qt6::Core)
set(art_object ${QUORRIN_ART_DIR}/art${CMAKE_CXX_OUTPUT_EXTENSION})
add_custom_command(
  OUTPUT ${art_object}
  COMMAND ${art_rcc} --pass 2 --temp $<TARGET_OBJECTS:quorrin_art_room> -o ${art_object} ${QUORRIN_ART_DIR}/art.qrc
  DEPENDS quorrin_art_room $<TARGET_OBJECTS:quorrin_art_room> ${QUORRIN_ART_DIR}/stamp
  COMMENT "Embedding the pictures"
  VERBATIM)
set_source_files_properties(${art_object} PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
add_library(quorrin_art SHARED ${art_object})
set_target_properties(quorrin_art PROPERTIES OUTPUT_NAME quorrin-art LINKER_LANGUAGE CXX)
target_link_libraries(quorrin_art PRIVATE Qt6::Core quorrin_options)

# Gives the pictures to TARGET and lets it include ArtPictures.inc.
function(quorrin_add_art TARGET)
  target_link_libraries(${TARGET} PUBLIC quorrin_art)
  target_include_directories(${TARGET} PUBLIC ${QUORRIN_ART_DIR})
  add_dependencies(${TARGET} art_pictures)
endfunction()
