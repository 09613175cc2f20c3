# What every target of ours shares: warnings, precompiled headers, include root, and one way to register a test.

# Headers that most units read anyway, and that never change with our code. A unit still includes what it uses: the
# preset `lean` builds without precompiled headers and proves that it does.
set(TARNWELL_CORE_PRECOMPILED
    <QByteArray> <QCoreApplication> <QDateTime> <QDir> <QFile> <QFileInfo> <QObject> <QPointer> <QString> <QStringList>
    <QTimer> <QVariant> <algorithm> <array> <functional> <map> <memory> <optional> <set> <span> <stdexcept> <string>
    <unordered_map> <utility> <vector>)
set(TARNWELL_UI_PRECOMPILED
    ${TARNWELL_CORE_PRECOMPILED} <QAction> <QApplication> <QBoxLayout> <QCheckBox> <QComboBox> <QGridLayout> <QGroupBox>
    <QHeaderView> <QIcon> <QKeyEvent> <QLabel> <QLineEdit> <QListWidget> <QMouseEvent> <QPainter> <QPlainTextEdit>
    <QPushButton> <QRadioButton> <QScrollBar> <QStyle> <QTableView> <QToolButton> <QWidget>)

# tarnwell_join_units(<target>)
# Compiles each folder's units as one, which reads their headers once. Screens and reports stay alone: each names its
# own measures, under the same names. What is missing in a unit is found by the preset `lean`.
function(tarnwell_join_units target)
  get_target_property(sources ${target} SOURCES)
  foreach(source ${sources})
    cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} OUTPUT_VARIABLE place)
    if(place MATCHES "\\.cpp$" AND NOT place MATCHES "(/frm[A-Za-z]*|Report)\\.cpp$")
      cmake_path(GET place PARENT_PATH folder)
      string(MAKE_C_IDENTIFIER ${folder} group)
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
    endif()
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()

function(tarnwell_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow
                         -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast $<$<BOOL:${TARNWELL_WERROR}>:-Werror>)
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
endfunction()

# tarnwell_test_program(<name> LIBS <libraries>... SOURCES <files>...)
function(tarnwell_test_program name)
  cmake_parse_arguments(ARG "" "" "LIBS;SOURCES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest)
  foreach(support tarnwell_test_core tarnwell_test_ui)
    if(${support} IN_LIST ARG_LIBS)
      target_precompile_headers(${name} REUSE_FROM ${support})
    endif()
  endforeach()
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  tarnwell_warnings(${name})
  # A fixture in the unnamed namespace of a unit that is compiled with others is no mistake.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endfunction()

# tarnwell_test(<name> LIBS <libraries>... SOURCES <files>...)
# One test program; each of its GoogleTest cases becomes a CTest test. Screens are drawn off screen.
function(tarnwell_test name)
  tarnwell_test_program(${name} ${ARGN})
  include(GoogleTest)
  # A table's rows are named by number: their printed bytes hold addresses, other ones in every run.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
                       PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()

# The folder of the PostgreSQL server that the tests start: its socket's path must be short.
string(MD5 TARNWELL_TEST_SERVER ${CMAKE_BINARY_DIR})
string(SUBSTRING ${TARNWELL_TEST_SERVER} 0 8 TARNWELL_TEST_SERVER)
set(TARNWELL_TEST_SERVER /tmp/tarnwell-postgres-${TARNWELL_TEST_SERVER})
set(TARNWELL_LEAKS "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/driver-leaks.supp:print_suppressions=0")

# tarnwell_also_on_postgres(<programs>...): their tests run a second time, on that server, as one CTest test each.
function(tarnwell_also_on_postgres)
  foreach(name ${ARGN})
    add_test(NAME postgres/${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(postgres/${name} PROPERTIES TIMEOUT 600 FIXTURES_REQUIRED postgres ENVIRONMENT
      "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TARNWELL_TEST_SERVER=${TARNWELL_TEST_SERVER};${TARNWELL_LEAKS}")
  endforeach()
endfunction()

# tarnwell_postgres_test(<name> LIBS <libraries>... SOURCES <files>...): a program about that server alone.
function(tarnwell_postgres_test name)
  tarnwell_test_program(${name} ${ARGN})
  tarnwell_also_on_postgres(${name})
endfunction()
