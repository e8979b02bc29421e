# A file belongs to the target of its folder: adding one needs no list to be edited.

# Sources and headers of the given folders, without those below mathlib/ and database/, which are of targets of their
# own.
function(metrisk_collect out_sources out_headers)
  set(sources)
  set(headers)
  foreach(folder IN LISTS ARGN)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS
         "${PROJECT_SOURCE_DIR}/${folder}/*.cpp" "${PROJECT_SOURCE_DIR}/${folder}/*.h")
    foreach(file IN LISTS found)
      file(RELATIVE_PATH below "${PROJECT_SOURCE_DIR}/${folder}" "${file}")
      if(below MATCHES "^(.*/)?((mathlib|database)/|main\\.cpp$)")
        continue()
      elseif(below MATCHES "\\.h$")
        list(APPEND headers "${file}")
      else()
        list(APPEND sources "${file}")
      endif()
    endforeach()
  endforeach()
  set(${out_sources} ${sources} PARENT_SCOPE)
  set(${out_headers} ${headers} PARENT_SCOPE)
endfunction()

# A static library of the given folders. Its headers form a verified header set:
# the target all_verify_interface_header_sets compiles each of them alone.
function(metrisk_library name)
  metrisk_collect(sources headers ${ARGN})
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${headers})
  target_link_libraries(${name} PRIVATE metrisk_options)
endfunction()
