# What the texts of the interface are translated with: translations/NAME_LANGUAGE.ts for the library
# and for the host. Where the tools are missing, the texts are English alone.
# Debian parts the package from the programs, without which looking for it ends the configuration.
find_program(ZT_LUPDATE lupdate HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS} NO_DEFAULT_PATH)
if(ZT_LUPDATE)
  find_package(Qt6LinguistTools QUIET)
endif()
if(NOT Qt6LinguistTools_FOUND)
  message(WARNING "There is no Qt6LinguistTools: all texts of the interface will be English")
elseif(PROJECT_IS_TOP_LEVEL)
  add_custom_target(translations
    COMMAND ${PROJECT_SOURCE_DIR}/cmake/lupdate.sh ${ZT_LUPDATE} ${PROJECT_SOURCE_DIR}/translations
    VERBATIM)
endif()

# zt_translations(TARGET NAME): compiles the files of that name into the target's resources, as
# :/NAME/translations/NAME_LANGUAGE.qm, which Q_INIT_RESOURCE(NAME_translations) makes known.
function(zt_translations target name)
  set(compiled "")
  set(entries "")
  if(Qt6LinguistTools_FOUND)
    file(GLOB texts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/translations/${name}_*.ts)
    set_source_files_properties(${texts} PROPERTIES OUTPUT_LOCATION ${CMAKE_CURRENT_BINARY_DIR})
    qt_add_lrelease(${target} TS_FILES ${texts} QM_FILES_OUTPUT_VARIABLE compiled OPTIONS -silent)
  endif()
  foreach(file IN LISTS compiled)
    cmake_path(GET file FILENAME file)
    string(APPEND entries "<file>${file}</file>")
  endforeach()
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}_translations.qrc)
  file(CONFIGURE OUTPUT ${list} CONTENT
    "<RCC><qresource prefix=\"/${name}/translations\">${entries}</qresource></RCC>\n" @ONLY)
  qt_add_resources(resources ${list})
  target_sources(${target} PRIVATE ${resources})
endfunction()
