# Installation: the two shared libraries with their headers (all in
# include/MabRix, included as <MabRix/Header.h>), rixsax, a CMake
# package (find_package(MabRixCommandModel CONFIG) gives MabRix::CommandModel,
# which brings MabRix::Host) and a pkg-config file.
include(CMakePackageConfigHelpers)

set(MABRIX_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/MabRixCommandModel)

# Installed libraries and tools find their neighbours in the install tree.
set_target_properties(KelHost MabRixCommandModel PROPERTIES INSTALL_RPATH "$ORIGIN")

install(TARGETS KelHost MabRixCommandModel
        EXPORT MabRixCommandModelTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
install(FILES ${MABRIX_HOST_HEADERS} ${MABRIX_PUBLIC_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/MabRix
        COMPONENT development)
if(TARGET rixsax)
  install(TARGETS rixsax RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endif()

install(EXPORT MabRixCommandModelTargets NAMESPACE MabRix:: DESTINATION ${MABRIX_CMAKE_DIR}
        COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/MabRixCommandModelConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/MabRixCommandModelConfig.cmake
                              INSTALL_DESTINATION ${MABRIX_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/MabRixCommandModelConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/MabRixCommandModelConfig.cmake
              ${PROJECT_BINARY_DIR}/MabRixCommandModelConfigVersion.cmake
        DESTINATION ${MABRIX_CMAKE_DIR} COMPONENT development)

# The pkg-config file finds the prefix from its own place: the install tree
# can be moved (or installed with --prefix).
file(RELATIVE_PATH MABRIX_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${PROJECT_SOURCE_DIR}/cmake/MabRixCommandModel.pc.in ${PROJECT_BINARY_DIR}/MabRixCommandModel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/MabRixCommandModel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)
