# Read by ctest: the tests of one program, a process for each suite. Under the sanitizers a process costs more to start than
# most tests to run. Which tests of a suite are skipped is told by the other builds: of a suite, ctest would call its failures
# skipped too. With PIXORRA_EACH_TEST in the environment each test is one of its own, so that -R finds it by its name.
#
# Given: suite_program, the test program; suite_launcher, the command before it; suite_prefix, before each name; suite_folder,
# where they run.

set(list "${suite_program}.list")
if(NOT EXISTS "${suite_program}")
  get_filename_component(suite_name "${suite_program}" NAME)
  add_test("${suite_prefix}${suite_name}_NOT_BUILT" "${suite_program}")
  return()
endif()
if("${suite_program}" IS_NEWER_THAN "${list}")
  execute_process(COMMAND ${suite_launcher} "${suite_program}" --gtest_list_tests
    OUTPUT_VARIABLE listed RESULT_VARIABLE failed TIMEOUT 60)
  if(failed)
    message(FATAL_ERROR "${suite_program} does not tell its tests: ${failed}")
  endif()
  file(WRITE "${list}" "${listed}")
endif()

function(pixorra_add_suite_test name filter)
  add_test("${suite_prefix}${name}" ${suite_launcher} "${suite_program}" "--gtest_filter=${filter}" --gtest_brief=1)
  # Seconds; many tests share them.
  set_tests_properties("${suite_prefix}${name}" PROPERTIES WORKING_DIRECTORY "${suite_folder}" TIMEOUT 600)
endfunction()

# A suite is a line that ends in a point, its tests are the indented lines below it; what a parameter is follows a #.
file(STRINGS "${list}" lines)
set(suite "")
foreach(line IN LISTS lines)
  string(REGEX REPLACE " *#.*$" "" line "${line}")
  if(line MATCHES "^([^ ]+)\\.$")
    set(suite "${CMAKE_MATCH_1}")
    if(NOT suite MATCHES "DISABLED_" AND NOT DEFINED ENV{PIXORRA_EACH_TEST})
      pixorra_add_suite_test("${suite}" "${suite}.*")
    endif()
  elseif(line MATCHES "^  ([^ ]+)$" AND DEFINED ENV{PIXORRA_EACH_TEST})
    set(test "${suite}.${CMAKE_MATCH_1}")
    if(NOT test MATCHES "DISABLED_")
      pixorra_add_suite_test("${test}" "${test}")
      set_tests_properties("${suite_prefix}${test}" PROPERTIES SKIP_REGULAR_EXPRESSION "\\[  SKIPPED \\]")
    endif()
  endif()
endforeach()
