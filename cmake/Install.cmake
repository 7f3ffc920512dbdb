# Install.cmake - installs libUtils the way a Debian library is installed:
# the versioned shared library, the public headers in a folder of their own
# (include/utils/, so that names such as utterance.h meet no other
# package's), a CMake package (find_package(Utils), target Utils::Utils), a
# pkg-config file (utils.pc) and the utts tool.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(UTILS_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/utils)
set(UTILS_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Utils)
set(UTILS_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Every header in include/ is public (the interface, one header per family),
# so the folder is globbed here rather than listed twice.
file(GLOB UTILS_PUBLIC_HEADERS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/include/*.h)
install(FILES ${UTILS_PUBLIC_HEADERS} DESTINATION ${UTILS_INSTALL_INCLUDEDIR})

install(TARGETS Utils EXPORT UtilsTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${UTILS_INSTALL_INCLUDEDIR})
install(EXPORT UtilsTargets NAMESPACE Utils:: DESTINATION ${UTILS_INSTALL_CMAKEDIR})

configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/UtilsConfig.cmake.in
  ${CMAKE_BINARY_DIR}/UtilsConfig.cmake INSTALL_DESTINATION ${UTILS_INSTALL_CMAKEDIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/UtilsConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/UtilsConfig.cmake ${CMAKE_BINARY_DIR}/UtilsConfigVersion.cmake
  DESTINATION ${UTILS_INSTALL_CMAKEDIR})

# The pkg-config file names its prefix relative to its own folder, so that
# the installed tree can be moved (or staged with cmake --install --prefix).
file(RELATIVE_PATH UTILS_PC_TO_PREFIX /${UTILS_INSTALL_PKGCONFIGDIR} /)
string(REGEX REPLACE "/$" "" UTILS_PC_TO_PREFIX "${UTILS_PC_TO_PREFIX}")
configure_file(${CMAKE_SOURCE_DIR}/cmake/utils.pc.in ${CMAKE_BINARY_DIR}/utils.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/utils.pc DESTINATION ${UTILS_INSTALL_PKGCONFIGDIR})
