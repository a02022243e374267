# The reference of what is installed, made by Doxygen: the target `api` makes build/…/api/html. What
# is public and not described is an error. After all zt_part().
file(GLOB input CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
list(PREPEND input ${PROJECT_SOURCE_DIR}/docs/api/main.md)
foreach(part Parsers Editor DbEditor)
  get_target_property(headers ZtCodeEditor${part} HEADER_SET)
  list(APPEND input ${headers})
endforeach()
set(ZT_API_OUTPUT ${PROJECT_BINARY_DIR}/api)
list(JOIN input "\" \\\n                         \"" ZT_API_INPUT)
set(ZT_API_INPUT "\"${ZT_API_INPUT}\"")
configure_file(${PROJECT_SOURCE_DIR}/docs/api/Doxyfile.in ${ZT_API_OUTPUT}/Doxyfile @ONLY)

find_package(Doxygen 1.9.4 QUIET)
if(DOXYGEN_FOUND)
  add_custom_target(api COMMAND Doxygen::doxygen ${ZT_API_OUTPUT}/Doxyfile VERBATIM)
endif()
