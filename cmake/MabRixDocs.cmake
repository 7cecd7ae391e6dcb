# The API reference of the installed headers, built by Doxygen with the
# "docs" target into <build>/docs/html. A warning on a header fails it.
set(MABRIX_DOCS_INPUT)
foreach(header IN LISTS MABRIX_HOST_HEADERS MABRIX_PUBLIC_HEADERS)
  string(APPEND MABRIX_DOCS_INPUT " \\\n                         ${header}")
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
add_custom_target(docs COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
                  COMMENT "API reference in ${PROJECT_BINARY_DIR}/docs/html" VERBATIM)
