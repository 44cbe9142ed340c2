# Builds the pictures from resources/art and embeds them: quorrin_add_art(<target>). The assembler takes them into the
# executable as they are; as a C++ source they would be 34 megabytes of digits to compile.

set(QUORRIN_ART_PYTHON /usr/bin/python3 CACHE FILEPATH "Python with numpy and PIL")
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
execute_process(COMMAND ${QUORRIN_ART_PYTHON} -c "import numpy, PIL" RESULT_VARIABLE art_python_fault ERROR_QUIET)
if(art_python_fault)
  message(FATAL_ERROR "${QUORRIN_ART_PYTHON} lacks numpy or PIL (packages python3-numpy, python3-pil)")
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
# The oldest form of the file carries no times, so the same pictures always give the same bytes.
add_custom_command(
  OUTPUT ${QUORRIN_ART_DIR}/art.rcc
  COMMAND Qt6::rcc --binary --no-compress --format-version 1 -o ${QUORRIN_ART_DIR}/art.rcc ${QUORRIN_ART_DIR}/art.qrc
  DEPENDS ${QUORRIN_ART_DIR}/stamp
  COMMENT "Embedding the pictures"
  VERBATIM)
add_custom_target(art_pictures DEPENDS ${QUORRIN_ART_DIR}/stamp ${QUORRIN_ART_DIR}/art.rcc)

# Embeds the pictures into TARGET and lets it include ArtPictures.inc.
function(quorrin_add_art TARGET)
  set(embedding ${PROJECT_SOURCE_DIR}/src/toolkit/EmbeddedArt.S)
  target_sources(${TARGET} PRIVATE ${embedding})
  set_source_files_properties(${embedding} TARGET_DIRECTORY ${TARGET}
                              PROPERTIES COMPILE_DEFINITIONS ART_FILE="${QUORRIN_ART_DIR}/art.rcc"
                                         OBJECT_DEPENDS ${QUORRIN_ART_DIR}/art.rcc)
  target_include_directories(${TARGET} PUBLIC ${QUORRIN_ART_DIR})
  add_dependencies(${TARGET} art_pictures)
endfunction()
