# How every target of the project is made: language level, warnings, checks.

function(morvak_target_options target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)
  target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../src)
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
endfunction()

# morvak_room(NAME SOURCES ... LINKS ...): one folder below src/, one library, which sees only what it links.
function(morvak_room name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(morvak_${name} STATIC ${ARG_SOURCES})
  morvak_target_options(morvak_${name})
  target_link_libraries(morvak_${name} PUBLIC ${ARG_LINKS})
endfunction()

# morvak_test(ROOM SOURCES ... LINKS ... [TIMEOUT seconds] [WIDGETS]): one binary for the room's tests, one
# ctest entry a source file. Every test gets the offscreen platform; the support library gives private XDG
# folders, and with WIDGETS an application that can show them.
function(morvak_test room)
  cmake_parse_arguments(ARG "WIDGETS" "TIMEOUT" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  set(target test_${room})
  add_executable(${target} ${ARG_SOURCES})
  morvak_target_options(${target})
  if(ARG_WIDGETS)
    target_link_libraries(${target} PRIVATE morvak_widget_test_support ${ARG_LINKS})
  else()
    target_link_libraries(${target} PRIVATE morvak_test_support ${ARG_LINKS})
  endif()
  foreach(source ${ARG_SOURCES})
    get_filename_component(subject ${source} NAME_WE)
    add_test(NAME ${room}.${subject} COMMAND ${target} --only ${subject})
    set_tests_properties(${room}.${subject} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
                                                       TIMEOUT ${ARG_TIMEOUT})
  endforeach()
endfunction()
