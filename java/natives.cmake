# orvexjava.jar carries liborvexjava and every shared library of this project
# that it needs, under natives/<platform>/ with an index in load order, so
# that `java -cp orvexjava.jar:app.jar App` runs with no library path.
# System libraries (libGL, libpng, libstdc++...) are not packed: they come
# from the system's packages.
#
# Expects the class jar target orvexjava_classes_jar; defines orvexjava_jar,
# whose JAR_FILE is ${CMAKE_BINARY_DIR}/java/orvexjava.jar.

# The platform folder; the same names as com.orvexa.internal.natives.NativePlatform.
string(TOLOWER "${CMAKE_SYSTEM_NAME}" _orvex_os)
if(_orvex_os STREQUAL "darwin")
  set(_orvex_os macos)
endif()
string(TOLOWER "${CMAKE_SYSTEM_PROCESSOR}" _orvex_arch)
if(_orvex_arch MATCHES "^(amd64|x64)$")
  set(_orvex_arch x86_64)
elseif(_orvex_arch STREQUAL "arm64")
  set(_orvex_arch aarch64)
elseif(_orvex_arch MATCHES "^i[3-6]86$")
  set(_orvex_arch x86)
endif()
set(ORVEX_NATIVES_PLATFORM "${_orvex_os}-${_orvex_arch}")

# Appends to the global property ORVEX_NATIVES_ORDER the project's shared
# libraries that <target> needs, then <target> itself when it is one: a
# depth-first walk of the link graph, so each library follows those it needs.
function(_orvex_collect_shared_libraries target)
  get_property(visited GLOBAL PROPERTY ORVEX_NATIVES_VISITED)
  if(target IN_LIST visited)
    return()
  endif()
  set_property(GLOBAL APPEND PROPERTY ORVEX_NATIVES_VISITED ${target})
  get_target_property(imported ${target} IMPORTED)
  if(imported)
    return()  # a system library
  endif()
  get_target_property(type ${target} TYPE)
  set(dependencies "")
  if(NOT type STREQUAL "INTERFACE_LIBRARY")
    get_target_property(linked ${target} LINK_LIBRARIES)
    if(linked)
      list(APPEND dependencies ${linked})
    endif()
  endif()
  get_target_property(interface ${target} INTERFACE_LINK_LIBRARIES)
  if(interface)
    list(APPEND dependencies ${interface})
  endif()
  foreach(dependency IN LISTS dependencies)
    # Static libraries list their own dependencies as $<LINK_ONLY:name>.
    if(dependency MATCHES "^\\$<LINK_ONLY:([^>]+)>$")
      set(dependency "${CMAKE_MATCH_1}")
    endif()
    if(TARGET "${dependency}")
      get_target_property(aliased "${dependency}" ALIASED_TARGET)
      if(aliased)
        set(dependency "${aliased}")
      endif()
      _orvex_collect_shared_libraries("${dependency}")
    endif()
  endforeach()
  if(type STREQUAL "SHARED_LIBRARY")
    set_property(GLOBAL APPEND PROPERTY ORVEX_NATIVES_ORDER ${target})
  endif()
endfunction()

# Call after every directory that links libraries into orvexjava.
function(orvex_pack_natives_into_jar)
  set_property(GLOBAL PROPERTY ORVEX_NATIVES_VISITED "")
  set_property(GLOBAL PROPERTY ORVEX_NATIVES_ORDER "")
  _orvex_collect_shared_libraries(orvexjava)
  get_property(libraries GLOBAL PROPERTY ORVEX_NATIVES_ORDER)

  set(list_file ${CMAKE_BINARY_DIR}/java/natives/libraries.txt)
  set(stage_dir ${CMAKE_BINARY_DIR}/java/natives/stage)
  set(index_file ${stage_dir}/natives/${ORVEX_NATIVES_PLATFORM}/index.txt)
  set(files "")
  foreach(library IN LISTS libraries)
    list(APPEND files "$<TARGET_FILE:${library}>")
  endforeach()
  file(GENERATE OUTPUT ${list_file} CONTENT "$<JOIN:${files},\n>\n")

  add_custom_command(
    OUTPUT ${index_file}
    COMMAND ${CMAKE_COMMAND}
      -DLIBRARY_LIST=${list_file}
      -DLIBRARY_DIR=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}
      -DOUTPUT_DIR=${stage_dir}/natives/${ORVEX_NATIVES_PLATFORM}
      -DREADELF=${CMAKE_READELF}
      -DSTRIP=${CMAKE_STRIP}
      -P ${PROJECT_SOURCE_DIR}/cmake/PackNatives.cmake
    DEPENDS ${libraries} ${files} ${list_file} ${PROJECT_SOURCE_DIR}/cmake/PackNatives.cmake
    COMMENT "Packing the native libraries for ${ORVEX_NATIVES_PLATFORM}"
    VERBATIM)

  get_target_property(classes_jar orvexjava_classes_jar JAR_FILE)
  set(jar ${CMAKE_BINARY_DIR}/java/orvexjava.jar)
  # Assembled under another name and renamed, so no reader sees half a jar.
  add_custom_command(
    OUTPUT ${jar}
    COMMAND ${CMAKE_COMMAND} -E copy ${classes_jar} ${jar}.part
    COMMAND ${Java_JAR_EXECUTABLE} uf ${jar}.part -C ${stage_dir} natives
    COMMAND ${CMAKE_COMMAND} -E rename ${jar}.part ${jar}
    DEPENDS ${classes_jar} orvexjava_classes_jar ${index_file}
    COMMENT "Creating Java archive orvexjava.jar with the native libraries"
    VERBATIM)
  add_custom_target(orvexjava_jar ALL DEPENDS ${jar})
  set_target_properties(orvexjava_jar PROPERTIES JAR_FILE ${jar})
endfunction()
