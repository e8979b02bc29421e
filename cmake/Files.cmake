# Pictures as files, for both programs: every files/ folder over the core.
find_package(PkgConfig REQUIRED)
pkg_check_modules(PANGOCAIRO REQUIRED IMPORTED_TARGET pangocairo cairo-pdf cairo-svg)

file(GLOB file_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/*/files/*.cpp" "${PROJECT_SOURCE_DIR}/*/files/*.h"
     "${PROJECT_SOURCE_DIR}/files/*.cpp" "${PROJECT_SOURCE_DIR}/files/*.h")
list(FILTER file_sources EXCLUDE REGEX "/(tests|build|desk)/")
set(file_headers ${file_sources})
list(FILTER file_headers INCLUDE REGEX "\\.h$")

add_library(metrisk_files STATIC ${file_sources})
target_sources(metrisk_files PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${file_headers})
target_link_libraries(metrisk_files PUBLIC metrisk_core PRIVATE PkgConfig::PANGOCAIRO metrisk_options)
