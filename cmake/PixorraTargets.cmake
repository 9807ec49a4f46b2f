# Flags for the project's own code, and a function that makes a library of one folder.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(PIXORRA_CCACHE ccache)
if(PIXORRA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without this ccache takes no file that uses a precompiled header. -fpch-preprocess, below, is its other condition.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime "${PIXORRA_CCACHE}")
endif()

add_library(pixorra_flags INTERFACE)
if(PIXORRA_CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(pixorra_flags INTERFACE -fpch-preprocess)
endif()
target_compile_options(pixorra_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping and overlong copies in the standard string's own operator+ where there are none, the latter only
  # when that comes from a precompiled header. The sanitizer build looks for real ones.
  target_compile_options(pixorra_flags INTERFACE -Wno-restrict -Wno-array-bounds -Wno-stringop-overread
    -Wno-stringop-overflow)
endif()
target_include_directories(pixorra_flags INTERFACE "${PROJECT_SOURCE_DIR}/src")

option(PIXORRA_SANITIZE "Address and undefined behaviour sanitizers, and the standard library's own assertions" OFF)
if(PIXORRA_SANITIZE)
  # Null and misaligned pointers are not looked for at each use: that alone is half of the code of a file without optimization,
  # and the address sanitizer ends at a null pointer as well. What is OPTIMIZED, so all that reads pictures, looks for both.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize=null,alignment -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=address,undefined)
  # The sanitizers' own code hides from GCC what is set; the other builds look for this.
  target_compile_options(pixorra_flags INTERFACE -Wno-maybe-uninitialized)
endif()

option(PIXORRA_FUZZ "Targets for libFuzzer, with clang" OFF)
if(PIXORRA_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "PIXORRA_FUZZ needs clang")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=address,undefined)
  # The warnings are GCC's to judge.
  target_compile_options(pixorra_flags INTERFACE -Wno-error -Wno-sign-conversion)
endif()

# pixorra_sources(variable SUFFIXES suffix... DIRS folder...): the files of these folders, not of folders below them.
function(pixorra_sources variable)
  cmake_parse_arguments(ARG "" "" "SUFFIXES;DIRS" ${ARGN})
  set(sources "")
  foreach(dir IN LISTS ARG_DIRS)
    foreach(suffix IN LISTS ARG_SUFFIXES)
      file(GLOB found CONFIGURE_DEPENDS "${dir}/*${suffix}")
      list(APPEND sources ${found})
    endforeach()
  endforeach()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# Compiles several files of a target as one where PIXORRA_UNITY is set: most of a file's time to compile is spent on headers
# and templates that its neighbours use as well. What is in an unnamed namespace must then be the only one of its name there.
# Forms stay apart: each has its own margins and sizes.
set(PIXORRA_UNITY 0 CACHE STRING "So many files are compiled as one: quicker from nothing, slower after a change of one")
if(PIXORRA_UNITY AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Kilobytes. The compiler looks for memory that it can use again only above this, so hardly ever.
  target_compile_options(pixorra_flags INTERFACE "SHELL:--param ggc-min-heapsize=1000000")
endif()
function(pixorra_unity name)
  if(NOT PIXORRA_UNITY)
    return()
  endif()
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${PIXORRA_UNITY})
  get_target_property(files ${name} SOURCES)
  list(FILTER files INCLUDE REGEX "(Form|/frm[^/]*)\\.cpp$")
  set_source_files_properties(${files} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  # GCC takes what a file includes for a header, and what is in an unnamed namespace there for shared.
  target_compile_options(${name} PRIVATE -Wno-subobject-linkage)
endfunction()

# pixorra_library(name [OPTIMIZED] DIRS folder... EXCEPT file... LINKS target... PRIVATE_LINKS target... PRECOMPILED target):
# the sources of these folders as one static library. What it links is what it may call. Precompiled are the standard
# library's headers, or those of another target. OPTIMIZED is where pixels, bytes or the photos of a whole strip are gone
# through one by one: the sanitizer build compiles all else without optimization, in half the time.
function(pixorra_library name)
  cmake_parse_arguments(ARG "OPTIMIZED" "" "DIRS;EXCEPT;LINKS;PRIVATE_LINKS;PRECOMPILED" ${ARGN})
  pixorra_sources(compiled SUFFIXES .cpp DIRS ${ARG_DIRS})
  foreach(file IN LISTS ARG_EXCEPT)
    list(REMOVE_ITEM compiled "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
  endforeach()
  add_library(${name} STATIC ${compiled})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE pixorra_flags ${ARG_PRIVATE_LINKS})
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  if(NOT ARG_PRECOMPILED)
    set(ARG_PRECOMPILED precompiled)
  endif()
  if(ARG_OPTIMIZED AND PIXORRA_SANITIZE)
    # Precompiled headers are for the other options alone.
    target_compile_options(${name} PRIVATE -O1 -fsanitize=null,alignment)
  else()
    target_precompile_headers(${name} REUSE_FROM ${ARG_PRECOMPILED})
  endif()
  pixorra_unity(${name})
endfunction()

# pixorra_precompiled(name HEADERS header... LINKS target...): headers of libraries, parsed once for all targets that reuse
# them. Only the standard library's and a toolkit's: each of our own files still includes what it uses.
function(pixorra_precompiled name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
  file(CONFIGURE OUTPUT "${name}.cpp" CONTENT "" @ONLY)
  add_library(${name} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
  target_link_libraries(${name} PRIVATE pixorra_flags ${ARG_LINKS})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()
