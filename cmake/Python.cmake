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

set(package "${PROJECT_BINARY_DIR}/python/metrisk")
# Nothing of the program is seen from outside but the module itself.
function(metrisk_native target folder name)
  metrisk_collect(sources headers ${folder})
  pybind11_add_module(${target} NO_EXTRAS ${sources})
  target_link_libraries(${target} PRIVATE ${ARGN} metrisk_options)
  target_compile_definitions(${target} PRIVATE
    "METRISK_VERSION=\"${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}\"")
  target_link_options(${target} PRIVATE -Wl,--exclude-libs,ALL)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name} LIBRARY_OUTPUT_DIRECTORY "${package}")
endfunction()
# Arrays of test points alone load no database and draw nothing; analyses as objects do.
metrisk_native(metrisk_python python/arrays _metrisk metrisk_rows metrisk_content)
metrisk_native(metrisk_python_analysis python/analysis _analysis metrisk_unattended)
add_dependencies(metrisk_python metrisk_python_analysis)
file(GLOB package_files CONFIGURE_DEPENDS python/metrisk/*.py python/metrisk/*.pyi python/metrisk/py.typed)
foreach(file IN LISTS package_files)
  get_filename_component(name "${file}" NAME)
  configure_file("${file}" "${package}/${name}" COPYONLY)
endforeach()
