# One place for what every target of the project is compiled with.
add_library(zt_options INTERFACE)
target_compile_options(zt_options INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor
                                            -Woverloaded-virtual -Wimplicit-fallthrough)
target_compile_definitions(zt_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII)
if(ZT_WERROR)
  target_compile_options(zt_options INTERFACE -Werror)
endif()
if(ZT_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=undefined
                 -fno-omit-frame-pointer)
  target_compile_options(zt_options INTERFACE ${sanitizers})
  target_link_options(zt_options INTERFACE ${sanitizers})
endif()
if(ZT_FUZZ)
  target_compile_options(zt_options INTERFACE -fsanitize=fuzzer-no-link,address)
  target_link_options(zt_options INTERFACE -fsanitize=address)
endif()

# Most of what a small source costs to compile is Qt's headers, so a build from nothing reads them
# once for each target. The presets for daily work do not, and notice an include that is missing.
function(zt_precompile name)
  if(ZT_PRECOMPILE)
    target_precompile_headers(${name} PRIVATE <functional> <memory> <vector> <QObject> <QString> ${ARGN})
  endif()
endfunction()

# zt_library(NAME [PART part] SOURCES ... HEADERS ... LINK ...): a layer. Its folder is its public include path,
# so that a unit can include only the layers that its target links. A layer is always static, so that
# tests see what is not exported; its objects make the library of its PART, whose declarations it
# exports (uZtExport.h), with HEADERS to be installed.
function(zt_library name)
  cmake_parse_arguments(arg "" "PART" "SOURCES;HEADERS;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE zt_options)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES
    ZT_HEADERS "${arg_HEADERS}"
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  if(NOT BUILD_SHARED_LIBS)
    target_compile_definitions(${name} PUBLIC ZT_STATIC)
  elseif(arg_PART)
    string(TOUPPER ${arg_PART} part)
    target_compile_definitions(${name} PRIVATE ZT_BUILDS_${part})
    # Nobody puts a function of his own in the place of an exported one.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
  endif()
  zt_precompile(${name})
endfunction()

# zt_test(NAME SOURCES ... LINK ...): a GoogleTest program, one ctest entry.
function(zt_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINK} zt_options GTest::gtest)
  zt_precompile(${name} <gtest/gtest.h>)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 600)
endfunction()
