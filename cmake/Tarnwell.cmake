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
  foreach(support tarnwell_test_core tarnwell_test_ui)
    if(${support} IN_LIST ARG_LIBS)
      target_precompile_headers(${name} REUSE_FROM ${support})
    endif()
  endforeach()
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  tarnwell_warnings(${name})
  include(GoogleTest)
  # A table's rows are named by number: their printed bytes hold addresses, other ones in every run.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
                       PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
