# Compiler settings shared by every target of the house, and the function that makes a room of it.

# Strict ISO C++ and no contraction: the same arithmetic on every machine. Infinities and NaN are
# ordinary values here, so nothing may ever switch fast mathematics on.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
add_compile_options(-ffp-contract=off)

# Designated initialisers leave out what keeps its default, on purpose.
add_compile_options(-Wno-missing-field-initializers)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wimplicit-fallthrough)
# Debugging builds look at what the library takes on trust: indexes, empty optionals, null pointers.
add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
if(BKUK_WERROR)
  add_compile_options(-Werror)
endif()

# Division by zero of doubles has a defined answer here, so it is no finding.
if(BKUK_SANITIZE)
  add_compile_options(-fsanitize=${BKUK_SANITIZE} -fno-sanitize=float-divide-by-zero
    -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${BKUK_SANITIZE})
endif()

# Of every test: how its sanitizer reports, and a language that no machine changes. Tests that are
# discovered take it from the preset and from their own entry instead, for discovery drops all but the
# first setting.
set(BKUK_TEST_ENVIRONMENT
  LC_ALL=C.UTF-8
  ASAN_OPTIONS=detect_stack_use_after_return=1
  LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/leaks.txt:print_suppressions=0
  UBSAN_OPTIONS=print_stacktrace=1)

add_library(bkuk_options INTERFACE)
target_compile_features(bkuk_options INTERFACE cxx_std_20)
target_include_directories(bkuk_options INTERFACE ${PROJECT_SOURCE_DIR})
target_link_libraries(bkuk_options INTERFACE Threads::Threads)

# bkuk_module(NAME [SOURCES] source... [HEADERS header...]): the sources of one folder, compiled once, for the
# library that is made of such modules. With headers from outside that most of them include, these are
# precompiled beside the standard ones.
function(bkuk_module name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;HEADERS")
  add_library(${name} OBJECT ${arg_SOURCES} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PUBLIC bkuk_options)
  if(arg_HEADERS)
    target_precompile_headers(${name} PRIVATE ${BKUK_STANDARD_HEADERS} ${arg_HEADERS})
  else()
    target_precompile_headers(${name} REUSE_FROM bkuk_standard_headers)
  endif()
  set_property(GLOBAL APPEND PROPERTY BKUK_MODULES ${name})
endfunction()

# bkuk_add_rooms(): add_subdirectory for every folder that describes itself, in order of the alphabet.
function(bkuk_add_rooms)
  file(GLOB rooms RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS */CMakeLists.txt)
  foreach(room ${rooms})
    get_filename_component(folder ${room} DIRECTORY)
    add_subdirectory(${folder})
  endforeach()
endfunction()
