# Targets of the project: one library a folder, one test program a test folder.

find_program(TESSERA_CCACHE ccache)
if(TESSERA_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${TESSERA_CCACHE})
endif()

add_library(tessera_options INTERFACE)
target_compile_options(tessera_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wimplicit-fallthrough -Wcast-qual
  # g++ 12 finds overlaps in the concatenation of std::string that are not there.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(TESSERA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# tessera_library(NAME SOURCES a.cpp ... DEPENDS target ... LIBRARIES imported ...)
# DEPENDS are visible to users of the library, LIBRARIES are its own affair.
function(tessera_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;LIBRARIES" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC
      ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE tessera_options ${ARG_LIBRARIES})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE
      ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE ${ARG_DEPENDS})
  endif()
endfunction()

# tessera_test(NAME SOURCES a_test.cpp ... DEPENDS target ...): a GoogleTest program.
function(tessera_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} tessera_options GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TESSERA_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
