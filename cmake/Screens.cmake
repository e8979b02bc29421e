# The window program: every screens/ folder and main.cpp over the core.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets Svg PrintSupport)

# The kit in screens/, and the screens/ folder of each subject.
file(GLOB screen_sources CONFIGURE_DEPENDS
     "${PROJECT_SOURCE_DIR}/screens/*.cpp" "${PROJECT_SOURCE_DIR}/screens/*.h"
     "${PROJECT_SOURCE_DIR}/window/*/*.cpp" "${PROJECT_SOURCE_DIR}/window/*/*.h"
     "${PROJECT_SOURCE_DIR}/*/screens/*.cpp" "${PROJECT_SOURCE_DIR}/*/screens/*.h")
list(FILTER screen_sources EXCLUDE REGEX "/(tests|build)/|/main.cpp$")

file(GLOB icons CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/shell/icons/*.svg")
file(GLOB help_pages CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/help/*.html" "${PROJECT_SOURCE_DIR}/help/*.tsv" "${PROJECT_SOURCE_DIR}/help/pictures/*.png")

set(screen_headers ${screen_sources})
list(FILTER screen_headers INCLUDE REGEX "\\.h$")

add_library(metrisk_screens STATIC ${screen_sources})
target_sources(metrisk_screens PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${screen_headers})
set_target_properties(metrisk_screens PROPERTIES AUTOMOC ON)
target_link_libraries(metrisk_screens PUBLIC metrisk_core metrisk_files Qt6::Widgets Qt6::Svg Qt6::PrintSupport PRIVATE metrisk_options)
target_compile_definitions(metrisk_screens PUBLIC METRISK_VERSION="${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
target_precompile_headers(metrisk_screens PRIVATE <QtWidgets>)
qt_add_resources(metrisk_screens icons PREFIX /icons BASE "${PROJECT_SOURCE_DIR}/shell/icons" FILES ${icons})
qt_add_resources(metrisk_screens help PREFIX /help BASE "${PROJECT_SOURCE_DIR}/help" FILES ${help_pages})

add_executable(metrisk window/shell/main.cpp)
target_link_libraries(metrisk PRIVATE metrisk_screens metrisk_options)
