# What `cmake --install` puts under the prefix (see docs/building.md):
#
#   bin/yvidl                              the compiler
#   <libdir>/yvidl/                        its libraries and back-end plug-ins
#   <libdir>/libyv_runtime.so.*            the runtime, with soname and version
#   include/yvidl/                         the runtime's public headers
#   share/yvidl/idl/                       the standard IDL files (orb.idl ...)
#   share/man/man1/yvidl.1                 the manual page
#   <libdir>/pkgconfig/yvidl-runtime.pc    pkg-config file of the runtime
#   <libdir>/cmake/yvidl/                  the CMake package (find_package(yvidl))
include(CMakePackageConfigHelpers)

# The compiler finds its libraries through its RUNPATH, the plug-ins find
# each other beside themselves.
set(yv_compiler_libraries yv_ifc yv_idl_cfe yv_cxx_ibe yv_poa_cxx_ibe)
set_target_properties(yvidl PROPERTIES INSTALL_RPATH "$ORIGIN/${YV_PLUGIN_RELDIR}" EXPORT_NAME yvidl)
set_target_properties(${yv_compiler_libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS yvidl EXPORT yvidlTargets RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS ${yv_compiler_libraries} LIBRARY DESTINATION ${YV_INSTALL_PLUGINDIR})

# The runtime: a versioned shared library and its headers.
set_target_properties(yv_runtime PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} EXPORT_NAME runtime)
install(TARGETS yv_runtime EXPORT yvidlTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${YV_INSTALL_INCLUDEDIR})
# Everything below runtime/include (headers and the .def tables they
# include), whatever is added there.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/runtime/include/ DESTINATION ${YV_INSTALL_INCLUDEDIR})

install(DIRECTORY ${PROJECT_SOURCE_DIR}/idl/ DESTINATION ${YV_INSTALL_IDLDIR})
install(FILES ${PROJECT_SOURCE_DIR}/man/yvidl.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# pkg-config: the prefix is found from the file's own place, so a moved
# tree still answers with its own paths.
yv_install_path(yv_pcdir ${YV_INSTALL_PKGCONFIGDIR})
file(RELATIVE_PATH yv_pc_to_prefix ${yv_pcdir} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" yv_pc_to_prefix "${yv_pc_to_prefix}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/yvidl-runtime.pc.in ${CMAKE_BINARY_DIR}/yvidl-runtime.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/yvidl-runtime.pc DESTINATION ${YV_INSTALL_PKGCONFIGDIR})

# The CMake package.
install(EXPORT yvidlTargets NAMESPACE yvidl:: DESTINATION ${YV_INSTALL_CMAKEDIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/yvidlConfig.cmake.in
  ${CMAKE_BINARY_DIR}/yvidlConfig.cmake
  INSTALL_DESTINATION ${YV_INSTALL_CMAKEDIR}
  PATH_VARS YV_INSTALL_IDLDIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/yvidlConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_BINARY_DIR}/yvidlConfig.cmake
  ${CMAKE_BINARY_DIR}/yvidlConfigVersion.cmake
  ${CMAKE_CURRENT_LIST_DIR}/yvidlGenerate.cmake
  DESTINATION ${YV_INSTALL_CMAKEDIR})
