# `find_package(WiFiProfile)`: the programs, and the libraries with which a host embeds it.
include(CMakePackageConfigHelpers)

set(installed_targets wifi_profile wifi_profile_runtime wifi_profile_ieee80211 wifi_profile_facts
    wifi_profile_checks wifi_profile_devices wifi_profile_scenario)
if(NOT WIFI_PROFILE_CORE_ONLY)
  list(APPEND installed_targets wifi-profile wifi_profile_linux)
  install(TARGETS wifi-profile-run wifi-profile-run-linux
          DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/wifi-profile)
endif()
install(TARGETS ${installed_targets} EXPORT WiFiProfileTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})

# The public headers: the interfaces of the services, what else a host includes, and what these include.
file(GLOB_RECURSE headers RELATIVE ${PROJECT_SOURCE_DIR}/src CONFIGURE_DEPENDS
     ${PROJECT_SOURCE_DIR}/src/diagnostic/platform/*.h)
list(APPEND headers
  devices/OpenLinuxDevice.h
  devices/scenario/ScenarioDevice.h
  devices/scenario/ScenarioReader.h
  diagnostic/controller/WiFiProfileViewController.h
  runtime/BuiltInStringTable.h
  runtime/IcuNameCollator.h
  runtime/Iso8601Formatter.h
  runtime/JsonReader.h
  runtime/JsonWriter.h
  runtime/NoScreen.h
  runtime/SafeText.h
  runtime/ThreadRunLoop.h
  runtime/VirtualTimeRunLoop.h)
set(installed_headers)
while(headers)
  list(POP_FRONT headers header)
  if(header IN_LIST installed_headers)
    continue()
  endif()
  list(APPEND installed_headers ${header})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/src/${header}
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/wifi_profile/${folder})
  file(STRINGS ${PROJECT_SOURCE_DIR}/src/${header} includes REGEX "^#include \"")
  list(TRANSFORM includes REPLACE "^#include \"(.*)\".*" "\\1")
  list(APPEND headers ${includes})
endwhile()
install(EXPORT WiFiProfileTargets NAMESPACE WiFiProfile::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/WiFiProfile)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/WiFiProfileConfig.cmake.in WiFiProfileConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/WiFiProfile)
write_basic_package_version_file(WiFiProfileConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/WiFiProfileConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/WiFiProfileConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/WiFiProfile)
install(FILES ${PROJECT_SOURCE_DIR}/docs/scenario.schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/wifi-profile)
install(FILES ${PROJECT_SOURCE_DIR}/docs/SETTINGS.md ${PROJECT_SOURCE_DIR}/docs/CHECKS.md
              ${PROJECT_SOURCE_DIR}/docs/SCENARIO.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/wifi-profile)
install(FILES ${PROJECT_SOURCE_DIR}/docs/wifi-profile.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The window, and how desktops and software centres list it.
if(WIFI_PROFILE_WINDOW)
  install(TARGETS wifi-profile-window DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/wifi-profile)
  set(application ${PROJECT_SOURCE_DIR}/data/org.wifi_profile.WifiProfile)
  install(FILES ${application}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${application}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${application}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
