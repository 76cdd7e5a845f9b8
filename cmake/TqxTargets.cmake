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
# One static library per folder. HEADERS are all of its headers: those in include/NAME are its face,
# which the libraries that link it can include; the others stand beside their sources and are the
# library's own. QT gives it Qt Widgets and the meta-object compiler.
function(tqx_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;HEADERS;LINKS")
  add_library(tqx_${name} STATIC ${arg_SOURCES} ${arg_HEADERS})
  add_library(Tqx::${name} ALIAS tqx_${name})
  target_include_directories(tqx_${name}
    PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/include
    PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(tqx_${name} PUBLIC ${arg_LINKS} PRIVATE tqx_options)
  if(arg_QT)
    target_link_libraries(tqx_${name} PUBLIC Qt6::Widgets)
    set_target_properties(tqx_${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  endif()
  tqx_headers_alone(${name} ${arg_HEADERS})
endfunction()

# Compiles each header of a library by itself, for the target headers_alone, which no other builds.
if(NOT TARGET headers_alone)
  add_custom_target(headers_alone)
endif()
function(tqx_headers_alone name)
  set(sources "")
  foreach(header IN LISTS ARGN)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/headers_alone/${header}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${CMAKE_CURRENT_SOURCE_DIR}/${header}\"\n")
    list(APPEND sources ${source})
  endforeach()
  add_library(tqx_${name}_headers OBJECT EXCLUDE_FROM_ALL ${sources})
  target_include_directories(tqx_${name}_headers PRIVATE
    $<TARGET_PROPERTY:tqx_${name},INCLUDE_DIRECTORIES>)
  target_link_libraries(tqx_${name}_headers PRIVATE Tqx::${name} tqx_options)
  add_dependencies(headers_alone tqx_${name}_headers)
endfunction()

# tqx_inside(TARGET LIBRARY ...): lets a program see the own headers of these libraries.
function(tqx_inside target)
  foreach(library IN LISTS ARGN)
    target_include_directories(${target} PRIVATE $<TARGET_PROPERTY:tqx_${library},SOURCE_DIR>)
  endforeach()
endfunction()

# tqx_test(NAME [QT [MAIN file]] SOURCES ... LINKS ... [INSIDE ...])
#
# One test program per folder of src/. INSIDE names libraries whose own headers it sees. QT gives it a main with a QApplication on the offscreen
# platform; MAIN takes another main in its place.
function(tqx_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "MAIN" "SOURCES;LINKS;INSIDE")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINKS} GTest::gmock tqx_options)
  tqx_inside(${name} ${arg_INSIDE})
  if(arg_QT)
    if(NOT arg_MAIN)
      set(arg_MAIN ${PROJECT_SOURCE_DIR}/tests/support/qt_test_main.cpp)
    endif()
    target_sources(${name} PRIVATE ${arg_MAIN})
    target_link_libraries(${name} PRIVATE Qt6::Test)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  else()
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
  endif()
  gtest_discover_tests(${name} TEST_PREFIX ${name}. DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 120)
endfunction()
