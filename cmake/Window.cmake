# The window program: everything of window/ over the desk.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets Svg PrintSupport)

file(GLOB icons CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/window/icons/*.svg")
file(GLOB help_pages CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/help/*.html" "${PROJECT_SOURCE_DIR}/help/*.tsv" "${PROJECT_SOURCE_DIR}/help/pictures/*.png")

metrisk_library(metrisk_window window)
set_target_properties(metrisk_window PROPERTIES AUTOMOC ON)
target_link_libraries(metrisk_window PUBLIC metrisk_screens metrisk_files Qt6::Widgets Qt6::Svg Qt6::PrintSupport)
target_compile_definitions(metrisk_window PUBLIC METRISK_VERSION="${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
target_precompile_headers(metrisk_window PRIVATE <QtWidgets>)
qt_add_resources(metrisk_window icons PREFIX /icons BASE "${PROJECT_SOURCE_DIR}/window/icons" FILES ${icons})
qt_add_resources(metrisk_window help PREFIX /help BASE "${PROJECT_SOURCE_DIR}/help" FILES ${help_pages})

add_executable(metrisk window/shell/main.cpp)
target_link_libraries(metrisk PRIVATE metrisk_window metrisk_options)
