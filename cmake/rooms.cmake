# The rooms of the house: libraries that can include what they link and nothing else.

# depcalc_headers(TARGET SCOPE DIRECTORY HEADERS…): makes the headers includable by their place in
# the tree ("engine/schedule.h"), through a folder of links that belongs to this target alone.
function(depcalc_headers target scope)
  set(include_root "${PROJECT_BINARY_DIR}/rooms/${target}")
  file(REMOVE_RECURSE "${include_root}")
  file(MAKE_DIRECTORY "${include_root}")
  foreach(header IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH header)
    file(RELATIVE_PATH place "${PROJECT_SOURCE_DIR}" "${header}")
    cmake_path(GET place PARENT_PATH folder)
    file(MAKE_DIRECTORY "${include_root}/${folder}")
    file(CREATE_LINK "${header}" "${include_root}/${place}" SYMBOLIC)
  endforeach()
  target_include_directories(${target} ${scope} "${include_root}")
endfunction()

# depcalc_room(NAME SOURCES … HEADERS … LINKS …): one folder of the house as a library. HEADERS are
# all of the folder's where none are named; a folder of two libraries names each one's.
function(depcalc_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;HEADERS;LINKS" ${ARGN})
  if(NOT ROOM_HEADERS)
    set(ROOM_HEADERS *.h)
  endif()
  list(TRANSFORM ROOM_HEADERS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  file(GLOB headers CONFIGURE_DEPENDS ${ROOM_HEADERS})
  if(ROOM_SOURCES)
    add_library(${name} STATIC ${ROOM_SOURCES})
    set(scope PUBLIC)
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_link_libraries(${name} ${scope} depcalc_settings ${ROOM_LINKS})
  depcalc_headers(${name} ${scope} ${headers})
  if(ROOM_SOURCES AND depcalc_room_headers)
    depcalc_precompiled_as(${name} ${depcalc_room_headers})
  endif()
  set_property(GLOBAL APPEND PROPERTY DEPCALC_ROOMS ${name})
endfunction()

# depcalc_write_rooms(FILE): a line "ROOM FOLDER…" for each room of the program, the folders that
# its sources find headers in.
function(depcalc_write_rooms file)
  get_property(rooms GLOBAL PROPERTY DEPCALC_ROOMS)
  set(lines "")
  foreach(room IN LISTS rooms)
    set(folders "$<TARGET_PROPERTY:${room},INTERFACE_INCLUDE_DIRECTORIES>")
    string(APPEND lines "${room} $<JOIN:${folders}, >\n")
  endforeach()
  file(GENERATE OUTPUT "${file}" CONTENT "${lines}")
endfunction()

# Libraries whose headers lie where every compiler looks are behind a gate: cmake/gates/ has a
# header of each one's name that compiles only for who links it by depcalc_outside, or for the sources
# that are named where it is linked.
function(depcalc_outside name definition)
  add_library(${name} INTERFACE)
  target_compile_definitions(${name} INTERFACE ${definition})
  target_link_libraries(${name} INTERFACE ${ARGN})
endfunction()
