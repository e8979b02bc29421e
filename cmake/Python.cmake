# The Python package: its native module beside its own files, importable from the build tree.
if(NOT METRISK_PYTHON OR METRISK_FUZZ OR METRISK_SANITIZE)
  return()
endif()
# Debian's own Python, for which its NumPy is.
set(Python_ROOT_DIR /usr)
find_package(Python 3.11 COMPONENTS Interpreter Development.Module NumPy QUIET)
find_package(pybind11 2.10 QUIET)
if(NOT Python_FOUND OR NOT pybind11_FOUND)
  message(STATUS "No Python module: Python with NumPy, or pybind11, is not here")
  return()
endif()

metrisk_collect(sources headers python)
set(package "${PROJECT_BINARY_DIR}/python/metrisk")
pybind11_add_module(metrisk_python NO_EXTRAS ${sources})
target_link_libraries(metrisk_python PRIVATE metrisk_rows metrisk_content metrisk_options)
target_compile_definitions(metrisk_python PRIVATE
  "METRISK_VERSION=\"${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}\"")
# Nothing of the program is seen from outside but the module itself.
target_link_options(metrisk_python PRIVATE -Wl,--exclude-libs,ALL)
set_target_properties(metrisk_python PROPERTIES OUTPUT_NAME _metrisk LIBRARY_OUTPUT_DIRECTORY "${package}")
file(GLOB package_files CONFIGURE_DEPENDS python/metrisk/*.py python/metrisk/*.pyi python/metrisk/py.typed)
foreach(file IN LISTS package_files)
  get_filename_component(name "${file}" NAME)
  configure_file("${file}" "${package}/${name}" COPYONLY)
endforeach()
