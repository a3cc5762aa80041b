# Installs the library, its headers, the CMake package `ordana` and the pkg-config file `ordana.pc`.
include(CMakePackageConfigHelpers)

set(ordana_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ordana")

install(TARGETS ordana EXPORT ordanaTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(EXPORT ordanaTargets NAMESPACE ordana:: DESTINATION "${ordana_package_dir}")

configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/ordanaConfig.cmake.in" "${PROJECT_BINARY_DIR}/ordanaConfig.cmake"
    INSTALL_DESTINATION "${ordana_package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ordanaConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ordanaConfig.cmake" "${PROJECT_BINARY_DIR}/ordanaConfigVersion.cmake"
    DESTINATION "${ordana_package_dir}")

# The prefix is told relative to the file itself, so that an installed tree can be moved.
cmake_path(IS_ABSOLUTE CMAKE_INSTALL_LIBDIR ordana_libdir_is_absolute)
if(ordana_libdir_is_absolute)
    set(ordana_pc_prefix "${CMAKE_INSTALL_PREFIX}")
else()
    file(RELATIVE_PATH ordana_up "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
    set(ordana_pc_prefix "\${pcfiledir}/${ordana_up}")
    string(REGEX REPLACE "/$" "" ordana_pc_prefix "${ordana_pc_prefix}")
endif()
foreach(kind LIBDIR INCLUDEDIR)
    set(ordana_pc_${kind} "${CMAKE_INSTALL_${kind}}")
    cmake_path(IS_ABSOLUTE ordana_pc_${kind} ordana_is_absolute)
    if(NOT ordana_is_absolute)
        string(PREPEND ordana_pc_${kind} "\${prefix}/")
    endif()
endforeach()
configure_file("${PROJECT_SOURCE_DIR}/cmake/ordana.pc.in" "${PROJECT_BINARY_DIR}/ordana.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/ordana.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
