# Targets of the project: one library a folder, one test program a test folder.

add_library(tessera_options INTERFACE)
target_compile_options(tessera_options INTERFACE
  $<$<BOOL:${TESSERA_WERROR}>:-Werror> -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wimplicit-fallthrough -Wcast-qual
  # g++ 12 finds overlaps and overflows in the concatenation of std::string that are not there; in precompiled
  # headers it does not know that they are the system's. clang and the sanitizers look for them, too.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds>)
if(TESSERA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# The first that is named: a caller passes the choice, if there is one, before the default.
function(tessera_reuse_precompiled name precompiled)
  target_precompile_headers(${name} REUSE_FROM ${precompiled})
endfunction()

# tessera_library(NAME SOURCES a.cpp ... DEPENDS target ... LIBRARIES imported ... [PRECOMPILED target])
# DEPENDS are visible to users of the library, LIBRARIES are its own affair.
function(tessera_library name)
  cmake_parse_arguments(ARG "" "PRECOMPILED" "SOURCES;DEPENDS;LIBRARIES" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC
      ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE tessera_options ${ARG_LIBRARIES})
    tessera_reuse_precompiled(${name} ${ARG_PRECOMPILED} tessera_pch)
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE
      ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE ${ARG_DEPENDS})
  endif()
endfunction()

# tessera_test(NAME SOURCES a_test.cpp ... DEPENDS target ... [PRECOMPILED target]): a GoogleTest program.
function(tessera_test name)
  cmake_parse_arguments(ARG "" "PRECOMPILED" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} tessera_options tessera_test_paths GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  tessera_reuse_precompiled(${name} ${ARG_PRECOMPILED} tessera_test_pch)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
