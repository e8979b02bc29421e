# How our own code is compiled. Everything that is ours links metrisk_options.
add_library(metrisk_options INTERFACE)

# No fast-math and no contraction: a figure must not depend on what the optimiser fused.
target_compile_options(metrisk_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Werror -ffp-contract=off)

# g++ 12 sees overlaps and overflows in std::string's own copying (GCC bug 105329).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(metrisk_options INTERFACE -Wno-restrict -Wno-stringop-overflow)
endif()

if(METRISK_SANITIZE)
  set(metrisk_sanitizers -fsanitize=${METRISK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(metrisk_options INTERFACE ${metrisk_sanitizers})
  target_link_options(metrisk_options INTERFACE ${metrisk_sanitizers})
endif()

if(METRISK_HARDEN)
  include(CheckPIESupported)
  check_pie_supported()
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  target_compile_options(metrisk_options INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -fstack-protector-strong)
  target_link_options(metrisk_options INTERFACE -Wl,-z,relro,-z,now)
endif()

# -O3 buys nothing outside the kernels, which ask for it themselves, and costs a tenth of the build.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
function(metrisk_optimise_kernels)
  file(GLOB kernels CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/numerics/*.cpp ${PROJECT_SOURCE_DIR}/numerics/mathlib/*.cpp
       ${PROJECT_SOURCE_DIR}/risk/exact/*.cpp ${PROJECT_SOURCE_DIR}/risk/sweeps/*.cpp)
  set_source_files_properties(${kernels} PROPERTIES COMPILE_OPTIONS "$<$<CONFIG:Release>:-O3>")
endfunction()

find_program(METRISK_CCACHE ccache)
if(METRISK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${METRISK_CCACHE})
endif()
