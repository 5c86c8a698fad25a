# omniORB 4 from Debian (libomniorb4-dev, omniidl): the peer ORB of the
# interoperability tests, the byte oracle of the CDR vectors and the rival of
# the benchmarks. Never needed to build the compiler or the runtime.
#
# Sets YV_OMNIORB_FOUND, YV_OMNIIDL and YV_OMNIORB_IDL_DIR (omniORB's own
# IDL: orb.idl, COS/), and defines when found
#   omniORB::omniORB4     the ORB core (its headers, as an imported target's,
#                         are system headers: <omniORB4/...> and the
#                         generated code's <orb.hh>)
#   omniORB::omniDynamic4 the ORB with Any and TypeCode support
# and yv_omniidl(<var> <idl> <dir> [omniidl flags]), which runs
# `omniidl -bcxx` on <idl> into <dir> and sets <var> to the .cc files it
# writes (with -Wba, the DynSK file too).
find_package(Threads REQUIRED)
find_program(YV_OMNIIDL omniidl)
find_path(YV_OMNIORB_INCLUDE_DIR omniORB4/CORBA.h)
find_path(YV_OMNIORB_IDL_DIR orb.idl PATHS /usr/share/idl/omniORB NO_DEFAULT_PATH)
find_library(YV_OMNIORB4_LIBRARY omniORB4)
find_library(YV_OMNIDYNAMIC4_LIBRARY omniDynamic4)
find_library(YV_OMNITHREAD_LIBRARY omnithread)

if(YV_OMNIIDL AND YV_OMNIORB_INCLUDE_DIR AND YV_OMNIORB_IDL_DIR AND YV_OMNIORB4_LIBRARY
   AND YV_OMNIDYNAMIC4_LIBRARY AND YV_OMNITHREAD_LIBRARY)
  set(YV_OMNIORB_FOUND TRUE)
else()
  set(YV_OMNIORB_FOUND FALSE)
  return()
endif()

if(TARGET omniORB::omniORB4)
  return()
endif()
add_library(omniORB::omniORB4 UNKNOWN IMPORTED GLOBAL)
set_target_properties(omniORB::omniORB4 PROPERTIES
  IMPORTED_LOCATION ${YV_OMNIORB4_LIBRARY}
  INTERFACE_INCLUDE_DIRECTORIES "${YV_OMNIORB_INCLUDE_DIR};${YV_OMNIORB_INCLUDE_DIR}/omniORB4"
  INTERFACE_LINK_LIBRARIES "${YV_OMNITHREAD_LIBRARY};Threads::Threads")
add_library(omniORB::omniDynamic4 UNKNOWN IMPORTED GLOBAL)
set_target_properties(omniORB::omniDynamic4 PROPERTIES
  IMPORTED_LOCATION ${YV_OMNIDYNAMIC4_LIBRARY}
  INTERFACE_LINK_LIBRARIES omniORB::omniORB4)

function(yv_omniidl var idl dir)
  get_filename_component(stem ${idl} NAME_WE)
  set(outputs ${dir}/${stem}.hh ${dir}/${stem}SK.cc)
  set(sources ${dir}/${stem}SK.cc)
  if("-Wba" IN_LIST ARGN)
    list(APPEND outputs ${dir}/${stem}DynSK.cc)
    list(APPEND sources ${dir}/${stem}DynSK.cc)
  endif()
  add_custom_command(
    OUTPUT ${outputs}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${dir}
    COMMAND ${YV_OMNIIDL} -bcxx ${ARGN} -C${dir} ${idl}
    DEPENDS ${idl}
    COMMENT "omniidl -bcxx ${stem}.idl")
  # omniidl's output is not ours to make warning-free.
  set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
  set(${var} ${sources} PARENT_SCOPE)
endfunction()
