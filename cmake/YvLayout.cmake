# Where the installed files go, and the build tree's mirror of the parts the
# compiler finds relative to its own location.
#
# The compiler looks for its plug-ins and its IDL directory relative to the
# directory of the yvidl binary, so an installed tree can be moved as a
# whole. The relative paths are computed here and compiled into the driver.
include(GNUInstallDirs)

# The compiler's own libraries (front end, foundation, back-end plug-ins)
# are private: nothing links them but yvidl and its plug-ins.
set(YV_INSTALL_PLUGINDIR ${CMAKE_INSTALL_LIBDIR}/yvidl)
# The runtime's headers get a folder of their own: generated code names
# <orb.hh>, <omg/...> and <zantic_sys/...>, too general for include/.
set(YV_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/yvidl)
set(YV_INSTALL_IDLDIR ${CMAKE_INSTALL_DATADIR}/yvidl/idl)
set(YV_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/yvidl)
set(YV_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# yv_install_path(<var> <dir>): <dir> as an absolute path below the prefix.
function(yv_install_path var dir)
  if(IS_ABSOLUTE "${dir}")
    set(${var} "${dir}" PARENT_SCOPE)
  else()
    set(${var} "${CMAKE_INSTALL_PREFIX}/${dir}" PARENT_SCOPE)
  endif()
endfunction()

yv_install_path(yv_bindir ${CMAKE_INSTALL_BINDIR})
yv_install_path(yv_plugindir ${YV_INSTALL_PLUGINDIR})
yv_install_path(yv_idldir ${YV_INSTALL_IDLDIR})
file(RELATIVE_PATH YV_PLUGIN_RELDIR ${yv_bindir} ${yv_plugindir})
file(RELATIVE_PATH YV_IDL_RELDIR ${yv_bindir} ${yv_idldir})

# The build tree mirrors the IDL directory: <build>/bin/<YV_IDL_RELDIR> is a
# link to the source copy, so that a built compiler reads the IDL files as
# they are edited. (The build tree's plug-ins stay in <build>/lib, where the
# driver looks when the installed plug-in directory is not there.)
get_filename_component(yv_build_idldir ${CMAKE_BINARY_DIR}/bin/${YV_IDL_RELDIR} ABSOLUTE)
get_filename_component(yv_build_idlparent ${yv_build_idldir} DIRECTORY)
file(MAKE_DIRECTORY ${yv_build_idlparent})
if(NOT IS_SYMLINK ${yv_build_idldir})
  file(REMOVE_RECURSE ${yv_build_idldir})
endif()
file(CREATE_LINK ${PROJECT_SOURCE_DIR}/idl ${yv_build_idldir} SYMBOLIC)
