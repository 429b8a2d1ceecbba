# SPDX-License-Identifier: MIT
# What makes faults in memory harder to use, for every program built here; tools/check.sh reads the built files.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

if(WIN32)
  # The linker's own choice today; stated, so that no other linker leaves them out.
  add_link_options(-Wl,--dynamicbase,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(-Wl,--high-entropy-va)
  endif()
else()
  check_pie_supported(LANGUAGES CXX)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  add_compile_options(-fstack-protector-strong)
  add_link_options(-Wl,-z,relro,-z,now)
  check_cxx_compiler_flag(-fcf-protection SORVEX_HAS_CF_PROTECTION)  # x86 only
  if(SORVEX_HAS_CF_PROTECTION)
    add_compile_options(-fcf-protection)
  endif()
  # Needs an optimized build; the sanitizers replace the functions that it would check.
  if(NOT SORVEX_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  endif()
endif()
