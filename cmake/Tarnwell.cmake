# What every target of ours shares: warnings, include root, and one way to register a test.

function(tarnwell_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow
                         -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast $<$<BOOL:${TARNWELL_WERROR}>:-Werror>)
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
endfunction()

# tarnwell_test(<name> LIBS <libraries>... SOURCES <files>...)
# One test program; each of its GoogleTest cases becomes a CTest test. Screens are drawn off screen.
function(tarnwell_test name)
  cmake_parse_arguments(ARG "" "" "LIBS;SOURCES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  tarnwell_warnings(${name})
  include(GoogleTest)
  # A table's rows are named by number: their printed bytes hold addresses, other ones in every run.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
                       PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
