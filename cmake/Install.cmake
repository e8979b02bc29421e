# Where everything goes on a desktop, and the Debian package of it.
include(GNUInstallDirs)

install(TARGETS metrisk-cli RUNTIME)
if(METRISK_WINDOW)
  set(data "${CMAKE_INSTALL_DATAROOTDIR}")
  install(TARGETS metrisk RUNTIME)
  install(FILES packaging/metrisk.desktop DESTINATION ${data}/applications)
  install(FILES packaging/metrisk.svg DESTINATION ${data}/icons/hicolor/scalable/apps)
  install(FILES packaging/metrisk-mime.xml DESTINATION ${data}/mime/packages RENAME metrisk.xml)
  install(FILES packaging/metrisk.metainfo.xml DESTINATION ${data}/metainfo)
endif()
# The units database to start with.
set(sample_units "${PROJECT_BINARY_DIR}/share/metrisk/Measurement Units.mdb")
add_custom_command(OUTPUT "${sample_units}"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${PROJECT_BINARY_DIR}/share/metrisk"
  COMMAND metrisk-cli units import --replace "${sample_units}" "${PROJECT_SOURCE_DIR}/data/units.csv" > sample-units.log
  DEPENDS metrisk-cli data/units.csv VERBATIM)
add_custom_target(sample-units ALL DEPENDS "${sample_units}")
if(METRISK_WINDOW)
  add_dependencies(metrisk sample-units)
endif()
install(FILES "${sample_units}" DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/metrisk
  PERMISSIONS OWNER_READ GROUP_READ WORLD_READ)

install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

# One manual page for both programs.
find_program(METRISK_GZIP gzip REQUIRED)
set(manual "${PROJECT_BINARY_DIR}/metrisk.1.gz")
add_custom_command(OUTPUT "${manual}"
  COMMAND ${METRISK_GZIP} -9nc "${PROJECT_SOURCE_DIR}/packaging/metrisk.1" > "${manual}"
  DEPENDS packaging/metrisk.1 VERBATIM)
add_custom_target(manual ALL DEPENDS "${manual}")
install(FILES "${manual}" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES "${manual}" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 RENAME metrisk-cli.1.gz)

# Completions of the options that the program really has.
set(completions "${PROJECT_BINARY_DIR}/metrisk-cli.bash")
add_custom_command(OUTPUT "${completions}" COMMAND metrisk-cli --bash-completion > "${completions}"
  DEPENDS metrisk-cli VERBATIM)
add_custom_target(completions ALL DEPENDS "${completions}")
install(FILES "${completions}" DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/bash-completion/completions RENAME metrisk-cli)

install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples FILES_MATCHING PATTERN "*.mrk" PATTERN "*.csv" PATTERN "*.py")

# The extension of SQLite, and the Python package, which is a Debian package of its own.
set(CPACK_COMPONENTS_ALL Unspecified)
if(TARGET metrisk_sqlite)
  install(TARGETS metrisk_sqlite LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/metrisk)
endif()
if(TARGET metrisk_postgresql)
  string(REGEX REPLACE "^/usr/" "" pg_modules "${pg_pkglibdir}")
  string(REGEX REPLACE "^/usr/" "" pg_share "${pg_sharedir}")
  string(REGEX MATCH "[0-9]+" pg_major "${pg_version}")
  install(TARGETS metrisk_postgresql LIBRARY DESTINATION ${pg_modules} COMPONENT postgresql)
  install(FILES "${PROJECT_BINARY_DIR}/postgresql/metrisk.control"
    "${PROJECT_BINARY_DIR}/postgresql/metrisk--${pg_version_of_extension}.sql"
    DESTINATION ${pg_share}/extension COMPONENT postgresql)
  install(FILES packaging/copyright DESTINATION share/doc/postgresql-${pg_major}-metrisk COMPONENT postgresql)
  list(APPEND CPACK_COMPONENTS_ALL postgresql)
endif()
if(TARGET metrisk_python)
  set(python_package lib/python3/dist-packages/metrisk)
  install(TARGETS metrisk_python metrisk_python_analysis LIBRARY DESTINATION ${python_package} COMPONENT python)
  install(FILES ${package_files} DESTINATION ${python_package} COMPONENT python)
  install(FILES packaging/copyright DESTINATION share/doc/python3-metrisk COMPONENT python)
  list(APPEND CPACK_COMPONENTS_ALL python)
  math(EXPR next_python "${Python_VERSION_MINOR} + 1") # the module is for one version
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "Metrisk")
set(CPACK_PACKAGE_CONTACT "Metrisk <packages@metrisk.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Measurement decision risk analysis")
set(CPACK_PACKAGE_DESCRIPTION
    "Computes false accept and false reject risk of tests and calibrations,\n compares them with a baseline and finds the equivalent accuracy ratio.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME metrisk)
if(METRISK_WINDOW)
  set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_DEPENDS libqt6svg6) # the icons: loaded as a plugin, so no link tells
endif()
set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-metrisk)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
    "Measurement decision risk analysis for Python\n Computes arrays of test points with NumPy: the figures of metrisk-cli rows.")
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "python3 (>= ${Python_VERSION_MAJOR}.${Python_VERSION_MINOR}), python3 (<< ${Python_VERSION_MAJOR}.${next_python}), python3-numpy")
set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_NAME postgresql-${pg_major}-metrisk)
set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_SECTION database)
set(CPACK_COMPONENT_POSTGRESQL_DESCRIPTION
    "Measurement decision risk analysis for PostgreSQL\n Computes test points in SQL: the figures of metrisk-cli rows.")
set(CPACK_DEBIAN_POSTGRESQL_PACKAGE_DEPENDS "postgresql-${pg_major}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
