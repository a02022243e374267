# The libraries that a host links, and how they are installed: headers, libraries, a package for
# find_package() and one for pkg-config. Nothing that is installed names a folder of the build.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(zt_include_folder ${CMAKE_INSTALL_INCLUDEDIR}/ZtCodeEditor)
set(zt_package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/ZtCodeEditor)
# Before 1.0 each minor version may change what a host sees.
set(zt_soversion ${PROJECT_VERSION_MAJOR})
set(zt_compatibility SameMajorVersion)
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(zt_soversion 0.${PROJECT_VERSION_MINOR})
  set(zt_compatibility SameMinorVersion)
endif()

# zt_part(NAME OUTPUT file LAYERS ... LINK ... PRIVATE ... DESCRIPTION ...): the library
# ZtCodeEditor::NAME, made of the layers' objects. LINK names parts and Qt's libraries that a host
# sees as well, PRIVATE what it does not see.
function(zt_part name)
  cmake_parse_arguments(arg "" "OUTPUT;DESCRIPTION" "LAYERS;LINK;PRIVATE" ${ARGN})
  set(target ZtCodeEditor${name})
  list(TRANSFORM arg_LINK REPLACE "^([A-Z][A-Za-z]+)$" "ZtCodeEditor\\1")
  list(TRANSFORM arg_LAYERS REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  add_library(${target} ${objects})
  add_library(ZtCodeEditor::${name} ALIAS ${target})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target}
    PUBLIC ${arg_LINK}
    PRIVATE ${arg_PRIVATE} $<BUILD_INTERFACE:zt_options>)
  if(NOT BUILD_SHARED_LIBS)
    target_compile_definitions(${target} INTERFACE ZT_STATIC)
  elseif(UNIX AND NOT APPLE AND NOT ZT_SANITIZE AND NOT ZT_FUZZ)
    # What is missing in a part is known here, not in a host.
    target_link_options(${target} PRIVATE LINKER:--no-undefined)
  endif()
  foreach(layer IN LISTS arg_LAYERS)
    get_target_property(folder ${layer} SOURCE_DIR)
    get_target_property(headers ${layer} ZT_HEADERS)
    list(TRANSFORM headers PREPEND ${folder}/)
    target_sources(${target} INTERFACE FILE_SET HEADERS BASE_DIRS ${folder} FILES ${headers})
  endforeach()
  set_target_properties(${target} PROPERTIES
    AUTOMOC OFF
    EXPORT_NAME ${name}
    LINKER_LANGUAGE CXX
    OUTPUT_NAME ${arg_OUTPUT}
    SOVERSION ${zt_soversion}
    VERSION ${PROJECT_VERSION}
    ZT_DESCRIPTION "${arg_DESCRIPTION}")
  # Where the system does not look, the libraries find each other by their own place.
  if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set_target_properties(${target} PROPERTIES INSTALL_RPATH $ORIGIN)
  endif()
endfunction()

# A library's file for pkg-config. Its folder is found from where the file itself is.
function(zt_install_pc name requires private)
  get_target_property(output ZtCodeEditor${name} OUTPUT_NAME)
  get_target_property(description ZtCodeEditor${name} ZT_DESCRIPTION)
  file(RELATIVE_PATH prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  string(REGEX REPLACE "/$" "" prefix ${prefix})
  set(flags "")
  if(NOT BUILD_SHARED_LIBS)
    set(flags " -DZT_STATIC")
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/ztcodeeditor.pc.in
                 ${PROJECT_BINARY_DIR}/package/${output}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/package/${output}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

function(zt_install)
  foreach(name Parsers Editor DbEditor)
    install(TARGETS ZtCodeEditor${name} EXPORT ZtCodeEditor${name}
      RUNTIME COMPONENT runtime
      LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
      ARCHIVE COMPONENT development
      FILE_SET HEADERS DESTINATION ${zt_include_folder} COMPONENT development)
    install(EXPORT ZtCodeEditor${name} FILE ZtCodeEditor${name}.cmake NAMESPACE ZtCodeEditor::
      DESTINATION ${zt_package_folder} COMPONENT development)
  endforeach()
  zt_install_pc(Parsers "Qt6Core >= 6.4" "")
  # A shared library has what it needs itself; pkg-config would look for it all the same.
  set(private "")
  if(NOT BUILD_SHARED_LIBS)
    set(private "icu-uc")
  endif()
  zt_install_pc(Editor "ztcodeeditor-parsers = ${PROJECT_VERSION}, Qt6Widgets >= 6.4" "${private}")
  zt_install_pc(DbEditor "ztcodeeditor = ${PROJECT_VERSION}, Qt6Sql >= 6.4" "")

  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZtCodeEditorConfig.cmake.in
    ${PROJECT_BINARY_DIR}/package/ZtCodeEditorConfig.cmake
    INSTALL_DESTINATION ${zt_package_folder} NO_SET_AND_CHECK_MACRO)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/ZtCodeEditorConfigVersion.cmake
    COMPATIBILITY ${zt_compatibility})
  install(FILES
    ${PROJECT_BINARY_DIR}/package/ZtCodeEditorConfig.cmake
    ${PROJECT_BINARY_DIR}/package/ZtCodeEditorConfigVersion.cmake
    DESTINATION ${zt_package_folder} COMPONENT development)
endfunction()
