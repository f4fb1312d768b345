# The flags that Debian hardens its programs with. Optimisation stays that of the build type; the paths of
# this source tree stay out of the program, so that it is the same wherever it is built.

find_program(DPKG_BUILDFLAGS dpkg-buildflags REQUIRED)

function(debian_flags variable result)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env DEB_BUILD_MAINT_OPTIONS=hardening=+all
                          DEB_CXXFLAGS_MAINT_STRIP=-g\ -O2 ${DPKG_BUILDFLAGS} --get ${variable}
                  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
                  OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  set(${result} ${flags} PARENT_SCOPE)
endfunction()

debian_flags(CXXFLAGS compile_flags)
debian_flags(CPPFLAGS preprocessor_flags)
debian_flags(LDFLAGS link_flags)
add_compile_options(${compile_flags} ${preprocessor_flags})
add_link_options(${link_flags})
