# Script (cmake -P): copies the native libraries that orvexjava.jar carries
# into OUTPUT_DIR, without debug sections, and writes OUTPUT_DIR/index.txt.
#
#   LIBRARY_LIST  file with one library path a line, each after those it needs
#   LIBRARY_DIR   the build's lib/ folder (a needed library found there must be packed)
#   OUTPUT_DIR    natives/<platform>/ of the staging tree
#   READELF       readelf, to check the order and completeness against the files
#   STRIP         strip (optional: without it the libraries are copied whole)
#
# index.txt: "content-hash <sha256>" then "<sha256> <size> <file name>" per
# library in load order; com.orvexa.internal.natives.NativeLibraryIndex reads it.

cmake_minimum_required(VERSION 3.25)

foreach(variable LIBRARY_LIST LIBRARY_DIR OUTPUT_DIR READELF)
  if(NOT ${variable})
    message(FATAL_ERROR "PackNatives: ${variable} is not set")
  endif()
endforeach()

file(STRINGS ${LIBRARY_LIST} libraries)
file(MAKE_DIRECTORY ${OUTPUT_DIR})

set(packed_names "")
set(index_lines "")
foreach(library IN LISTS libraries)
  get_filename_component(name ${library} NAME)
  set(staged ${OUTPUT_DIR}/${name})
  if(STRIP)
    execute_process(COMMAND ${STRIP} --strip-debug -o ${staged}.part ${library} RESULT_VARIABLE failed)
    if(failed)
      message(FATAL_ERROR "PackNatives: ${STRIP} failed on ${library}")
    endif()
  else()
    file(COPY_FILE ${library} ${staged}.part)
  endif()
  file(RENAME ${staged}.part ${staged})

  # Every library of this build that it needs must be packed, and before it.
  execute_process(COMMAND ${READELF} -d ${staged} OUTPUT_VARIABLE dynamic RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "PackNatives: ${READELF} -d ${staged} failed")
  endif()
  string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*\\[[^]\n]+\\]" needed_lines "${dynamic}")
  foreach(line IN LISTS needed_lines)
    string(REGEX REPLACE ".*\\[([^]]+)\\]$" "\\1" needed "${line}")
    if(EXISTS ${LIBRARY_DIR}/${needed} AND NOT needed IN_LIST packed_names)
      message(FATAL_ERROR "PackNatives: ${name} needs ${needed} of ${LIBRARY_DIR}, "
                          "which is not packed before it")
    endif()
  endforeach()

  file(SHA256 ${staged} hash)
  file(SIZE ${staged} size)
  list(APPEND packed_names ${name})
  string(APPEND index_lines "${hash} ${size} ${name}\n")
endforeach()

# Libraries of an earlier build that are no longer needed must not reach the jar.
file(GLOB present RELATIVE ${OUTPUT_DIR} ${OUTPUT_DIR}/*)
foreach(file IN LISTS present)
  if(NOT file IN_LIST packed_names AND NOT file STREQUAL "index.txt")
    file(REMOVE ${OUTPUT_DIR}/${file})
  endif()
endforeach()

string(SHA256 content_hash "${index_lines}")
file(WRITE ${OUTPUT_DIR}/index.txt.part
  "# Native libraries of orvexjava.jar, in load order (each after those it needs).\n"
  "content-hash ${content_hash}\n"
  "${index_lines}")
file(RENAME ${OUTPUT_DIR}/index.txt.part ${OUTPUT_DIR}/index.txt)
