# The target `style`: clang-format for the layout of all sources, clang-tidy for each that has changed since it passed last.
# A header is checked with the source of the same name, or by itself where there is none.

find_program(CLANG_FORMAT clang-format)
find_program(CLANG_TIDY clang-tidy)
if(NOT CLANG_FORMAT OR NOT CLANG_TIDY)
  message(STATUS "No target style: clang-format or clang-tidy is missing")
  return()
endif()

set(sources)
set(headers)
foreach(folder src tools tests soak fuzz bench)
  file(GLOB_RECURSE found CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  list(APPEND sources ${found})
  file(GLOB_RECURSE found CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
  list(APPEND headers ${found})
endforeach()

set(style_stamps ${CMAKE_BINARY_DIR}/style/layout.stamp)
add_custom_command(
  OUTPUT ${style_stamps}
  COMMAND ${CLANG_FORMAT} --dry-run -Werror ${sources} ${headers}
  COMMAND ${CMAKE_COMMAND} -E touch ${style_stamps}
  DEPENDS ${sources} ${headers} ${PROJECT_SOURCE_DIR}/.clang-format
  COMMENT "Checking the layout of the sources"
  VERBATIM)

# Checks SOURCE, and the header HEADER if one is given.
function(check_with_tidy SOURCE HEADER)
  cmake_path(RELATIVE_PATH SOURCE BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE name)
  set(stamp ${CMAKE_BINARY_DIR}/style/${name}.stamp)
  add_custom_command(
    OUTPUT ${stamp}
    # Standard error only counts what was left out in the headers of libraries.
    COMMAND sh -c "exec \"$@\" 2>/dev/null" sh
            ${CLANG_TIDY} -p ${CMAKE_BINARY_DIR} --quiet "--header-filter=${HEADER}" ${SOURCE}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${SOURCE} ${HEADER} ${PROJECT_SOURCE_DIR}/.clang-tidy
    COMMENT "Checking ${name}"
    VERBATIM)
  list(APPEND style_stamps ${stamp})
  set(style_stamps ${style_stamps} PARENT_SCOPE)
endfunction()

# What is not compiled here cannot be checked: what is written for another system, and bench unless it is built.
list(FILTER sources EXCLUDE REGEX ${other_system})
if(NOT QUORRIN_BENCH)
  list(FILTER sources EXCLUDE REGEX "^${PROJECT_SOURCE_DIR}/bench/")
  list(FILTER headers EXCLUDE REGEX "^${PROJECT_SOURCE_DIR}/bench/")
endif()

foreach(source IN LISTS sources)
  cmake_path(REPLACE_EXTENSION source .h OUTPUT_VARIABLE header)
  if(header IN_LIST headers)
    list(REMOVE_ITEM headers ${header})
    check_with_tidy(${source} ${header})
  else()
    check_with_tidy(${source} "")
  endif()
endforeach()
foreach(header IN LISTS headers)
  check_with_tidy(${header} "")
endforeach()

add_custom_target(style DEPENDS ${style_stamps})
add_dependencies(style art_pictures)
