# Headers, library, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/VelmoraHost)

install(TARGETS VelmoraHost EXPORT VelmoraHostTargets)
install(DIRECTORY include/velmora DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(EXPORT VelmoraHostTargets NAMESPACE VelmoraHost:: DESTINATION ${package_dir})

configure_package_config_file(cmake/VelmoraHostConfig.cmake.in VelmoraHostConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(VelmoraHostConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/VelmoraHostConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/VelmoraHostConfigVersion.cmake
    DESTINATION ${package_dir})

# Found from where the file lies, so that the installed tree may be moved.
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig ${prefix_from_pkgconfig})
configure_file(cmake/velmorahost.pc.in velmorahost.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/velmorahost.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
