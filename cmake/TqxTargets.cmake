# The project's own ways to declare a library, a test program and a benchmark.

add_library(tqx_options INTERFACE)
target_compile_options(tqx_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
  -Wformat=2 -Wimplicit-fallthrough -Wunused
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 takes a text put before a std::string for an overlap (its bug 105651).
  target_compile_options(tqx_options INTERFACE -Wno-restrict)
endif()
target_compile_definitions(tqx_options INTERFACE QT_NO_KEYWORDS QT_NO_FOREACH)
# As Debian builds its own programs, but for binding every symbol at the start, which delays it.
target_compile_options(tqx_options INTERFACE
  $<$<CONFIG:Release>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong>)
if(TQX_SANITIZE)
  # The sanitizers' own code makes the compiler see variables that are not set where there are none.
  target_compile_options(tqx_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(tqx_options INTERFACE -fsanitize=address,undefined)
endif()
if(TQX_FUZZ)
  target_compile_options(tqx_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(TQX_LTO)
  # Only a linker that sees all types finds one name that stands for two of them.
  target_compile_options(tqx_options INTERFACE -flto=auto)
  target_link_options(tqx_options INTERFACE -flto=auto -Werror=odr -Werror=lto-type-mismatch)
endif()

# tqx_library(NAME [QT] SOURCES ... HEADERS ... [LINKS ...])
#
# One static library per folder, with an include directory of its own (include/ beside its
# sources), so that a folder can include only what stands in the libraries that it links.
# QT gives it Qt Widgets and the meta-object compiler.
function(tqx_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;HEADERS;LINKS")
  add_library(tqx_${name} STATIC)
  add_library(Tqx::${name} ALIAS tqx_${name})
  target_sources(tqx_${name}
    PRIVATE ${arg_SOURCES} ${arg_HEADERS}
    PUBLIC FILE_SET HEADERS BASE_DIRS include FILES ${arg_HEADERS})
  target_link_libraries(tqx_${name} PUBLIC ${arg_LINKS} PRIVATE tqx_options)
  set_target_properties(tqx_${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  if(arg_QT)
    target_link_libraries(tqx_${name} PUBLIC Qt6::Widgets)
    set_target_properties(tqx_${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  endif()
endfunction()

# tqx_test(NAME [QT [MAIN file]] SOURCES ... LINKS ...)
#
# One test program per folder of src/. QT gives it a main with a QApplication on the offscreen
# platform; MAIN takes another main in its place.
function(tqx_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "MAIN" "SOURCES;LINKS")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINKS} GTest::gmock tqx_options)
  if(arg_QT)
    if(NOT arg_MAIN)
      set(arg_MAIN ${PROJECT_SOURCE_DIR}/tests/support/qt_test_main.cpp)
    endif()
    target_sources(${name} PRIVATE
      ${arg_MAIN} ${PROJECT_SOURCE_DIR}/tests/support/qt_leaks.cpp)
    target_link_libraries(${name} PRIVATE Qt6::Test)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  else()
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
  endif()
  gtest_discover_tests(${name} TEST_PREFIX ${name}. DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 120)
endfunction()
