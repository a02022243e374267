# Debian packages: `cpack -G DEB` in the folder of a build with shared libraries for the prefix /usr
# (preset `package`). The project makes them itself, so that they have no revision of their own.

# What the newest commit says; empty where there are no commits.
find_package(Git QUIET)
function(zt_commit format result)
  set(said "")
  if(GIT_FOUND)
    execute_process(
      COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C
        ${GIT_EXECUTABLE} log -1 "--format=${format}" "--date=format:%a, %d %b %Y %T %z" -- .
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
      OUTPUT_VARIABLE said OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  endif()
  set(${result} "${said}" PARENT_SCOPE)
endfunction()

zt_commit("%an <%ae>" author)
if(NOT author)
  set(author "Zt Code Editor maintainers <maintainers@example.com>")
endif()
set(ZT_MAINTAINER "${author}" CACHE STRING
  "Who is named as the maintainer of packages, with an address")
zt_commit("%cd" zt_date)
if(NOT zt_date)
  file(TIMESTAMP ${PROJECT_SOURCE_DIR}/CHANGELOG.md zt_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
endif()

# Component and package.
set(zt_runtime libztcodeeditor${zt_soversion})
set(zt_packages runtime:${zt_runtime} development:libztcodeeditor-dev)
if(ZT_DESIGNER)
  list(APPEND zt_packages designer:ztcodeeditor-designer)
endif()
if(ZT_HOST)
  list(APPEND zt_packages ztedit:ztedit)
endif()

configure_file(${PROJECT_SOURCE_DIR}/packaging/changelog.in ${PROJECT_BINARY_DIR}/package/changelog @ONLY)
find_program(GZIP_PROGRAM gzip)
if(GZIP_PROGRAM)
  execute_process(COMMAND ${GZIP_PROGRAM} -9nc ${PROJECT_BINARY_DIR}/package/changelog
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/package/changelog.gz)
endif()

# Which package programs depend on. CPack would write it also for the plugin, which nobody links.
set(shlibs "")
foreach(name Parsers Editor DbEditor)
  get_target_property(output ZtCodeEditor${name} OUTPUT_NAME)
  string(APPEND shlibs "lib${output} ${zt_soversion} ${zt_runtime} (>= ${PROJECT_VERSION})\n")
endforeach()
file(WRITE ${PROJECT_BINARY_DIR}/package/shlibs "${shlibs}")

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
  if(GZIP_PROGRAM)
    install(FILES ${PROJECT_BINARY_DIR}/package/changelog.gz DESTINATION ${folder} COMPONENT ${component})
  endif()
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/packaging/lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides RENAME ${zt_runtime} COMPONENT runtime)

set(CPACK_PACKAGE_NAME ztcodeeditor)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${ZT_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE ztcodeeditor)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  ${PROJECT_SOURCE_DIR}/packaging/triggers ${PROJECT_BINARY_DIR}/package/shlibs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "source-code editor control for Qt (libraries)
Lexers and colour schemes, an editor control for Qt Widgets, and one for the
text fields of databases.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${zt_runtime} (= ${PROJECT_VERSION}), qt6-base-dev (>= 6.4)")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS ztcodeeditor-designer)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "source-code editor control for Qt (headers)
Headers, and what CMake and pkg-config need, to build programs with the editor
control.")

set(CPACK_DEBIAN_DESIGNER_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_DESIGNER_PACKAGE_DEPENDS "${zt_runtime} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DESIGNER_DESCRIPTION "source-code editor control for Qt (form designer)
A plugin with which Qt Designer offers the editor controls. Programs that load
forms while they run need it, too.")

# Qt loads the driver while the program runs, so that nobody sees that it is needed.
set(CPACK_DEBIAN_ZTEDIT_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_ZTEDIT_PACKAGE_DEPENDS libqt6sql6-sqlite)
set(CPACK_DEBIAN_ZTEDIT_PACKAGE_RECOMMENDS "qt6-translations-l10n, fonts-liberation")
set(CPACK_DEBIAN_ZTEDIT_DESCRIPTION "source-code editor
Edits scripts and sources in Pascal, Visual Basic script, JavaScript, XML and
SQL, in files and in the fields of SQLite databases.")
include(CPack)
