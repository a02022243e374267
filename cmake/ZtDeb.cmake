# Debian packages: `cpack -G DEB` in the folder of a build with shared libraries for the prefix /usr
# (preset `package`).
set(ZT_MAINTAINER "Zt Code Editor maintainers <maintainers@example.com>" CACHE STRING
  "Who is named as the maintainer of packages, with an address")
set(zt_runtime libztcodeeditor${PROJECT_VERSION_MAJOR})
set(zt_packages runtime:${zt_runtime} development:libztcodeeditor-dev)
if(ZT_HOST)
  list(APPEND zt_packages ztedit:ztedit)
endif()

configure_file(${PROJECT_SOURCE_DIR}/packaging/changelog.in ${PROJECT_BINARY_DIR}/package/changelog @ONLY)
find_program(GZIP_PROGRAM gzip)
if(GZIP_PROGRAM)
  execute_process(COMMAND ${GZIP_PROGRAM} -9nc ${PROJECT_BINARY_DIR}/package/changelog
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/package/changelog.Debian.gz)
endif()

set(CPACK_COMPONENTS_ALL "")
foreach(row IN LISTS zt_packages)
  string(REPLACE ":" ";" row ${row})
  list(GET row 0 component)
  list(GET row 1 package)
  string(TOUPPER ${component} COMPONENT)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME ${package})
  set(folder ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package})
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright DESTINATION ${folder} COMPONENT ${component})
  install(FILES ${PROJECT_BINARY_DIR}/package/changelog.Debian.gz DESTINATION ${folder}
    COMPONENT ${component})
endforeach()

set(CPACK_PACKAGE_NAME ztcodeeditor)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_PACKAGE_CONTACT "${ZT_MAINTAINER}")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "source-code editor control for Qt (libraries)
 Lexers and colour schemes, an editor control for Qt Widgets, and one for the
 text fields of databases.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${zt_runtime} (= ${PROJECT_VERSION}-1), qt6-base-dev (>= 6.4)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "source-code editor control for Qt (headers)
 Headers, and what CMake and pkg-config need, to build programs with the editor
 control.")
set(CPACK_DEBIAN_ZTEDIT_PACKAGE_SECTION editors)
set(CPACK_COMPONENT_ZTEDIT_DESCRIPTION "source-code editor
 Edits scripts and sources in Pascal, Visual Basic script, JavaScript, XML and
 SQL, in files and in the fields of SQLite databases.")
include(CPack)
