# The extension of SQLite: it takes the engine of whoever loads it, and has none of its own.
if(METRISK_FUZZ OR METRISK_SANITIZE)
  return()
endif()
metrisk_collect(sources headers sql)
add_library(metrisk_sqlite MODULE ${sources})
target_link_libraries(metrisk_sqlite PRIVATE metrisk_rows metrisk_content metrisk_options)
target_compile_definitions(metrisk_sqlite PRIVATE
  "METRISK_VERSION=\"${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}\"")
target_link_options(metrisk_sqlite PRIVATE -Wl,--exclude-libs,ALL -Wl,--as-needed)
set_target_properties(metrisk_sqlite PROPERTIES OUTPUT_NAME metrisk PREFIX "" CXX_VISIBILITY_PRESET hidden
  LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/sql")
