# Build conventions shared by every target of the project.

# Warnings of our own code; errors unless MABRIX_WARNINGS_AS_ERRORS is off.
function(mabrix_warnings target)
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                             -Wno-unused-parameter)
    # g++ 12 at -O2/-O3 reports these inside libstdc++'s std::string, in
    # string copies inlined on a branch a length rules out, and after an
    # intrusive Release() (known false positives of that compiler): they stay
    # warnings there, everything else is an error.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      target_compile_options(${target} PRIVATE -Wno-error=restrict -Wno-error=use-after-free
                                               -Wno-error=stringop-overflow -Wno-error=array-bounds
                                               -Wno-error=maybe-uninitialized -Wno-error=stringop-overread)
    endif()
    if(MABRIX_WARNINGS_AS_ERRORS)
      target_compile_options(${target} PRIVATE -Werror)
    endif()
  endif()
endfunction()

# The headers as a user includes them, <MabRix/Header.h>, in one folder of the
# project's own: installed flat into include/MabRix (the headers include one
# another by quoted bare names, which resolve next to the including header);
# in the build tree a folder of one-line forwarders to the sources.
set(MABRIX_INCLUDE_DIR ${PROJECT_BINARY_DIR}/include)
function(mabrix_forward_headers)
  foreach(header IN LISTS ARGN)
    get_filename_component(header_name "${header}" NAME)
    file(CONFIGURE OUTPUT ${MABRIX_INCLUDE_DIR}/MabRix/${header_name} CONTENT "#include \"${header}\"\n" @ONLY)
  endforeach()
endfunction()

# Every source of a target reports its checks under its path in the source
# tree without the extension, e.g.
# MabRixCommandModel/MabRixSAXHandlers.m/src/MabRixSAXHandlerBase.
function(mabrix_check_files target)
  get_target_property(sources ${target} SOURCES)
  get_target_property(source_dir ${target} SOURCE_DIR)
  foreach(source IN LISTS sources)
    if(NOT source MATCHES "\\.cpp$")
      continue()
    endif()
    if(IS_ABSOLUTE "${source}")
      set(path "${source}")
    else()
      set(path "${source_dir}/${source}")
    endif()
    file(RELATIVE_PATH relative "${PROJECT_SOURCE_DIR}" "${path}")
    string(REGEX REPLACE "\\.cpp$" "" check_file "${relative}")
    set_property(SOURCE "${path}" TARGET_DIRECTORY ${target} APPEND PROPERTY COMPILE_DEFINITIONS
                 "KEL_CHECK_FILE=\"${check_file}\"")
  endforeach()
endfunction()
