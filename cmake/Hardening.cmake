# What makes it harder to use a fault of an optimized program against it. Neither a project that
# includes this one nor one that uses the installed package gets these flags: it has its own.
# Sanitizers find more, and do not go together with this.
if(NOT PROJECT_IS_TOP_LEVEL OR WIFI_PROFILE_SANITIZERS
   OR NOT CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$")
  return()
endif()
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
target_compile_options(wifi_profile_options INTERFACE
  -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
# Not every processor has these.
foreach(flag -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER "WIFI_PROFILE_HAS${flag}" has)
  check_cxx_compiler_flag(${flag} ${has})
  if(${has})
    target_compile_options(wifi_profile_options INTERFACE ${flag})
  endif()
endforeach()
target_link_options(wifi_profile_options INTERFACE LINKER:-z,relro,-z,now,-z,noexecstack)
