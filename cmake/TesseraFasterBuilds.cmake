# What makes building fast: the compiler cache, the linker, precompiled headers. All three are used where they are found.

find_program(TESSERA_CCACHE ccache)
if(TESSERA_CCACHE)
  # Results hold in every checkout: paths are taken from the source folder, and a precompiled header is told by its
  # content. The sloppiness is what the cache demands before it accepts one.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${TESSERA_CCACHE})
endif()

find_program(TESSERA_LLD ld.lld)
if(TESSERA_LLD)
  add_link_options(-fuse-ld=lld)
endif()

# A precompiled header is only accepted under the options it was made with, and one library in three asks for this.
add_compile_options(-pthread)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

# tessera_precompiled(NAME HEADERS "<header>" ... LIBRARIES imported ...): a header that other targets take with
# PRECOMPILED. Only headers of the system: one of this checkout's would come out of the cache under another path.
function(tessera_precompiled name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LIBRARIES" ${ARGN})
  set(unit ${PROJECT_BINARY_DIR}/precompiled/${name}.cpp)
  file(CONFIGURE OUTPUT ${unit} CONTENT "")
  add_library(${name} OBJECT ${unit})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/include)
  target_link_libraries(${name} PRIVATE tessera_options ${ARG_LIBRARIES})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

# Called once the libraries are found.
function(tessera_precompile_headers)
  set(standard "<algorithm>" "<array>" "<cmath>" "<cstdint>" "<functional>" "<limits>" "<memory>" "<optional>"
    "<span>" "<string>" "<string_view>" "<unordered_map>" "<utility>" "<variant>" "<vector>")
  set(testing "<gtest/gtest.h>" "<filesystem>" "<fstream>" "<map>" "<sstream>")
  tessera_precompiled(tessera_pch HEADERS ${standard})
  tessera_precompiled(tessera_test_pch HEADERS ${standard} ${testing} LIBRARIES GTest::gtest)
  if(TESSERA_QT)
    tessera_precompiled(tessera_qt_pch HEADERS ${standard} "<QApplication>" "<QKeyEvent>" "<QPainter>" "<QPointer>" "<QWidget>" LIBRARIES Qt6::Widgets)
    # The grid has names like "slots".
    target_compile_definitions(tessera_qt_pch PRIVATE QT_NO_KEYWORDS)
  endif()
endfunction()
