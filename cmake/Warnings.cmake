# What every target of the project is compiled with. Warnings are errors in the developers' presets only
# (CMAKE_COMPILE_WARNING_AS_ERROR): another compiler's new warning must not keep a user from building.
add_library(wifi_profile_options INTERFACE)
target_compile_features(wifi_profile_options INTERFACE cxx_std_20)
target_compile_options(wifi_profile_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # gcc 12 sees an overlap in `"text" + std::string` where there is none (gcc bug 105651).
  target_compile_options(wifi_profile_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # Where files are compiled as one, gcc takes them for headers, and warns of their anonymous namespaces.
  target_compile_options(wifi_profile_options INTERFACE -Wno-subobject-linkage)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
  # Designated initialisers leave out what has a default; clang 14 warns of that where gcc does not.
  target_compile_options(wifi_profile_options INTERFACE -Wno-missing-field-initializers -Wthread-safety)
endif()
if(WIFI_PROFILE_SANITIZERS)
  add_compile_options(-fsanitize=${WIFI_PROFILE_SANITIZERS} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${WIFI_PROFILE_SANITIZERS})
  if(WIFI_PROFILE_SANITIZERS MATCHES undefined)
    # It looks at memory through a pipe, which a test of a system without descriptors does not have.
    add_compile_options(-fno-sanitize=vptr)
  endif()
endif()
