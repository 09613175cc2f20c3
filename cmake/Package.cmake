# What an installed Tarnwell consists of and where it lies, and the Debian package that CPack makes of it.

include(GNUInstallDirs)

set(TARNWELL_PICTURES https://brenmoor.example/tarnwell/pictures CACHE STRING
    "Where docs/manual/pictures is published for catalogues of software; names in .example belong to nobody")
set(TARNWELL_ID com.brenmoor.tarnwell)
set(TARNWELL_CONTACT "The Tarnwell authors <tarnwell@brenmoor.example>")

set(package_sources ${CMAKE_SOURCE_DIR}/resources/package)
set(package_folder ${CMAKE_BINARY_DIR}/package)
set(package_files)

# compress(<file>): as Debian wants man pages and changelogs, into the package's folder.
function(compress file)
  cmake_path(GET file FILENAME name)
  set(made ${package_folder}/${name}.gz)
  add_custom_command(OUTPUT ${made} DEPENDS ${file} COMMAND gzip -9nc ${file} > ${made} VERBATIM)
  set(package_files ${package_files} ${made} PARENT_SCOPE)
endfunction()

# The man pages bear the day on which the changelog's last version was made.
file(STRINGS ${package_sources}/changelog TARNWELL_DATE REGEX "^ -- " LIMIT_COUNT 1)
string(REGEX REPLACE ".*, ([0-9]+ [A-Za-z]+ [0-9]+) .*" "\\1" TARNWELL_DATE "${TARNWELL_DATE}")
foreach(page tarnwell.1 tarnwell-db.1)
  configure_file(${package_sources}/${page}.in ${package_folder}/${page} @ONLY)
  compress(${package_folder}/${page})
endforeach()
compress(${package_sources}/changelog)

# In Debian's form a licence is indented, with a dot on empty lines.
file(READ ${CMAKE_SOURCE_DIR}/LICENSE TARNWELL_LICENSE)
string(REGEX REPLACE "^.*\n(Permission is)" "\\1" TARNWELL_LICENSE "${TARNWELL_LICENSE}")
string(REGEX REPLACE "\n+$" "" TARNWELL_LICENSE "${TARNWELL_LICENSE}")
string(REPLACE "\n" "\n " TARNWELL_LICENSE " ${TARNWELL_LICENSE}")
string(REPLACE "\n \n" "\n .\n" TARNWELL_LICENSE "${TARNWELL_LICENSE}")
configure_file(${package_sources}/copyright.in ${package_folder}/copyright @ONLY)

set(DESKTOP_EXEC tarnwell)
set(DESKTOP_ICON tarnwell)
configure_file(${package_sources}/tarnwell.desktop.in ${package_folder}/tarnwell.desktop @ONLY)
configure_file(${package_sources}/${TARNWELL_ID}.metainfo.xml.in ${package_folder}/${TARNWELL_ID}.metainfo.xml @ONLY)

set(icon ${CMAKE_SOURCE_DIR}/resources/icons/tarnwell.svg)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(pixels 48 128 256)
  set(drawn ${package_folder}/tarnwell-${pixels}.png)
  add_custom_command(OUTPUT ${drawn} DEPENDS ${icon} COMMAND draw-icon ${icon} ${pixels} ${drawn} VERBATIM)
  list(APPEND package_files ${drawn})
  install(FILES ${drawn} DESTINATION ${icons}/${pixels}x${pixels}/apps RENAME tarnwell.png)
endforeach()
install(FILES ${icon} DESTINATION ${icons}/scalable/apps)

add_custom_target(package_files ALL DEPENDS ${package_files})

install(TARGETS tarnwell tarnwell-db)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/resources/layouts DESTINATION ${CMAKE_INSTALL_DATADIR}/tarnwell
        FILES_MATCHING PATTERN *.lyt)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/manual/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tarnwell/help
        FILES_MATCHING PATTERN *.md PATTERN *.png)
install(FILES ${package_folder}/tarnwell.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${package_folder}/${TARNWELL_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${package_folder}/tarnwell.1.gz ${package_folder}/tarnwell-db.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
file(CREATE_LINK ../../tarnwell/help ${package_folder}/manual SYMBOLIC)
install(FILES ${package_folder}/copyright ${package_folder}/changelog.gz ${package_folder}/manual
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tarnwell)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarnwell)
set(CPACK_PACKAGE_VENDOR ${TARNWELL_COMPANY})
set(CPACK_PACKAGE_CONTACT ${TARNWELL_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "payroll for piecework on construction jobs, task by task")
set(CPACK_PACKAGE_DESCRIPTION "Tarnwell is for a contractor who carries out tasks on builders' construction
jobs and pays people by the task. It keeps a catalogue of priced tasks, each
builder's plans, jobs with their lots and lot tasks, and the people who do the
work. It records payments, warns before one that may be wrong, and prints six
reports: Gantt chart, calendar, lot budget, lot options, employee paid-out and
employee corrections.
.
The data are in one SQLite file, or in a catalog on a PostgreSQL server.
The package also holds tarnwell-db, which makes, checks and saves databases.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# Beside the libraries that the programs are linked with: fonts as wide as those that reports name, and one for screens.
# Without the latter everything is written in the typewriter's.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, fonts-liberation")
# Printing, and the drivers of servers.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups-client, odbc-postgresql, tdsodbc")
include(CPack)
