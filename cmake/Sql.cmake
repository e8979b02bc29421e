# Extensions of SQL engines: each takes the engine of whoever loads it, and has none of its own.
if(METRISK_FUZZ OR METRISK_SANITIZE)
  return()
endif()
add_library(metrisk_sql STATIC sql/SqlFunctions.cpp)
target_link_libraries(metrisk_sql PRIVATE metrisk_rows metrisk_content metrisk_options)
target_compile_definitions(metrisk_sql PRIVATE
  "METRISK_VERSION=\"${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}\"")
set_target_properties(metrisk_sql PROPERTIES POSITION_INDEPENDENT_CODE ON)

function(metrisk_extension target source folder)
  add_library(${target} MODULE ${source})
  target_link_libraries(${target} PRIVATE metrisk_sql metrisk_options)
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_options(${target} PRIVATE -Wl,--exclude-libs,ALL -Wl,--as-needed)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME metrisk PREFIX "" CXX_VISIBILITY_PRESET hidden
    LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${folder}")
endfunction()
metrisk_extension(metrisk_sqlite sql/sqlite/SqliteModule.cpp sql)

# Where the headers of a server are: its package is one of its own.
find_program(METRISK_PG_CONFIG pg_config)
if(METRISK_PG_CONFIG)
  foreach(what includedir-server pkglibdir sharedir version)
    execute_process(COMMAND ${METRISK_PG_CONFIG} --${what} OUTPUT_VARIABLE pg_${what} OUTPUT_STRIP_TRAILING_WHITESPACE
                    ERROR_QUIET)
  endforeach()
  if(EXISTS "${pg_includedir-server}/postgres.h")
    metrisk_extension(metrisk_postgresql sql/postgresql/PostgresModule.cpp postgresql)
    target_include_directories(metrisk_postgresql SYSTEM PRIVATE "${pg_includedir-server}")
    set(pg_version_of_extension ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
    configure_file(sql/postgresql/metrisk.control.in "${PROJECT_BINARY_DIR}/postgresql/metrisk.control")
    configure_file(sql/postgresql/metrisk.sql
                   "${PROJECT_BINARY_DIR}/postgresql/metrisk--${pg_version_of_extension}.sql" COPYONLY)
  endif()
endif()
