# How every target of the project is made: language level, warnings, checks, and what it may include.

# morvak_target_options(TARGET [PRECOMPILED core|widgets|tests|widget_tests]): the set of headers that are read
# beforehand; none without it.
function(morvak_target_options target)
  cmake_parse_arguments(ARG "" "PRECOMPILED" "" ${ARGN})
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS)
  target_compile_options(${target} PRIVATE -pthread -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                           -Wno-sign-conversion)
  if(MORVAK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(MORVAK_CHECKS)
    target_compile_definitions(${target} PUBLIC _GLIBCXX_ASSERTIONS)
  endif()
  if(MORVAK_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=${MORVAK_SANITIZE} -fno-sanitize-recover=all
                                            -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${MORVAK_SANITIZE})
  endif()
  if(MORVAK_PRECOMPILE AND ARG_PRECOMPILED)
    target_precompile_headers(${target} REUSE_FROM morvak_precompiled_${ARG_PRECOMPILED})
  endif()
endfunction()

# Tests run once: optimising them costs more than it gives. A precompiled header must be made the same way.
function(morvak_build_fast target)
  target_compile_options(${target} PRIVATE -O1)
endfunction()

# morvak_precompiled(NAME HEADERS ... LINKS ...): headers that nearly every file of a kind includes, read once for
# all targets that ask for them by this name.
function(morvak_precompiled name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
  set(source ${CMAKE_BINARY_DIR}/precompiled_${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  set(target morvak_precompiled_${name})
  add_library(${target} STATIC ${source})
  set_target_properties(${target} PROPERTIES AUTOMOC OFF)
  target_link_libraries(${target} PRIVATE ${ARG_LINKS})
  morvak_target_options(${target})
  target_precompile_headers(${target} PRIVATE ${ARG_HEADERS})
endfunction()

# What a room may include are its own files and those of the rooms it links: its folder stands alone, under its
# own path, in an include folder of its own. An include of any other room finds no file.
#   morvak_includes(TARGET ROOT): ROOT is the folder that paths in #include start from.
function(morvak_includes target root)
  file(RELATIVE_PATH path ${root} ${CMAKE_CURRENT_SOURCE_DIR})
  set(includes ${CMAKE_BINARY_DIR}/include/${target})
  cmake_path(GET path PARENT_PATH parent)
  file(MAKE_DIRECTORY ${includes}/${parent})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${includes}/${path} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${includes})
endfunction()

# morvak_library(NAME ROOT dir SOURCES ... LINKS ... [PRECOMPILED set]): the files of one folder, and what they
# may use.
function(morvak_library name)
  cmake_parse_arguments(ARG "" "ROOT;PRECOMPILED" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_PRECOMPILED)
    set(ARG_PRECOMPILED core)
  endif()
  add_library(morvak_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(morvak_${name} PUBLIC ${ARG_LINKS})
  morvak_target_options(morvak_${name} PRECOMPILED ${ARG_PRECOMPILED})
  morvak_includes(morvak_${name} ${ARG_ROOT})
endfunction()

# morvak_room(NAME SOURCES ... LINKS ...): one folder below src/, one library, which sees only what it links.
# A room below src/ui/ is called ui_FOLDER.
function(morvak_room name)
  morvak_library(${name} ROOT ${CMAKE_SOURCE_DIR}/src ${ARGN})
endfunction()

# morvak_part(NAME SOURCES ... LINKS ...): the same for a folder below tools/, bench/ or tests/.
function(morvak_part name)
  cmake_path(GET CMAKE_CURRENT_SOURCE_DIR PARENT_PATH root)
  morvak_library(${name} ROOT ${root} ${ARGN})
endfunction()

# morvak_program(NAME SOURCES ... LINKS ... [PRECOMPILED set])
function(morvak_program name)
  cmake_parse_arguments(ARG "" "PRECOMPILED" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_PRECOMPILED)
    set(ARG_PRECOMPILED core)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS})
  morvak_target_options(${name} PRECOMPILED ${ARG_PRECOMPILED})
endfunction()

# `./test` builds all that is told here, `./test ROOM` one room.
#   morvak_room_test(ROOM [DEPENDS target ...])
function(morvak_room_test room)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  add_custom_target(room_${room} DEPENDS ${ARG_DEPENDS})
  set_property(GLOBAL APPEND PROPERTY MORVAK_TESTED_ROOMS room_${room})
endfunction()

# morvak_test(ROOM SOURCES ... LINKS ... [TIMEOUT seconds] [WIDGETS]): one binary for the room's tests, one
# ctest entry per source file. Every test gets the offscreen platform; the support library gives private XDG
# folders, and with WIDGETS an application that can show them.
function(morvak_test room)
  cmake_parse_arguments(ARG "WIDGETS" "TIMEOUT" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  set(support morvak_test_support)
  set(precompiled tests)
  if(ARG_WIDGETS)
    set(support morvak_widget_test_support)
    set(precompiled widget_tests)
  endif()
  set(target test_${room})
  morvak_program(${target} SOURCES ${ARG_SOURCES} LINKS ${support} ${ARG_LINKS} PRECOMPILED ${precompiled})
  morvak_build_fast(${target})
  morvak_room_test(${room} DEPENDS ${target})
  foreach(source ${ARG_SOURCES})
    get_filename_component(subject ${source} NAME_WE)
    add_test(NAME ${room}.${subject} COMMAND ${target} --only ${subject})
    set_tests_properties(${room}.${subject} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
                                                       TIMEOUT ${ARG_TIMEOUT})
  endforeach()
endfunction()
