# yvidl_generate: C++ sources from IDL files, as part of a target.
#
#   yvidl_generate(TARGET <target> IDL_FILES <file>...
#                  [CLIENT] [POA] [TIE] [AMI]
#                  [INCLUDE_DIRS <dir>...] [OPTIONS <arg>...] [OUT_DIR <dir>])
#
# For every IDL file one build step runs yvidl in OUT_DIR (default
# <current binary dir>/yvidl/<target>):
#
#   CLIENT   the client mapping, foo.hh and foo.cxx (-base); the default
#            when neither CLIENT nor POA is given
#   POA      the POA skeletons, fooS.hh and fooS.cxx (-poa)
#   TIE      also TIE templates in fooS.hh (-poa:-xTIE; implies POA)
#   AMI      the callback model of asynchronous calls (-xAMICallbacks for
#            each back end given)
#
# INCLUDE_DIRS are searched for #include files (-I), after the including
# file's own directory and before the compiler's standard IDL directory.
# OPTIONS are further arguments of yvidl (-D..., -U...); a -base:<options>
# or -poa:<options> among them adds its options to that back end (and
# selects it). Output directories and file extensions are the function's.
#
# The generated files are added to the target's sources, OUT_DIR to its
# include directories and yvidl::runtime to its link libraries (all
# PUBLIC, so that targets linking a library of generated code get them
# too). The step writes a dependency file listing every IDL file it read:
# with the Ninja and Makefile generators an edited included file rebuilds
# exactly the outputs that read it.
function(yvidl_generate)
  cmake_parse_arguments(PARSE_ARGV 0 yv "CLIENT;POA;TIE;AMI" "TARGET;OUT_DIR" "IDL_FILES;INCLUDE_DIRS;OPTIONS")
  if(yv_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "yvidl_generate: unknown arguments: ${yv_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT yv_TARGET)
    message(FATAL_ERROR "yvidl_generate: TARGET <target> is required")
  endif()
  if(NOT TARGET ${yv_TARGET})
    message(FATAL_ERROR "yvidl_generate: ${yv_TARGET} is not a target")
  endif()
  if(NOT yv_IDL_FILES)
    message(FATAL_ERROR "yvidl_generate: IDL_FILES <file>... is required")
  endif()
  if(NOT TARGET yvidl::yvidl OR NOT TARGET yvidl::runtime)
    message(FATAL_ERROR "yvidl_generate: the targets yvidl::yvidl and yvidl::runtime are missing (find_package(yvidl))")
  endif()

  # Back-end options: ours first, then the user's.
  set(client_options)
  set(poa_options)
  set(pass)
  foreach(arg IN LISTS yv_OPTIONS)
    if(arg MATCHES "^-(base|poa)(:(.*))?$")
      set(backend ${CMAKE_MATCH_1})
      set(text "${CMAKE_MATCH_3}")
      string(REPLACE ":" ";" pieces "${text}")
      foreach(piece IN LISTS pieces)
        if(piece MATCHES "^-(O|h|c|s|b)")
          message(FATAL_ERROR "yvidl_generate: '${piece}' in ${arg}: output directories and file names are set by the function (OUT_DIR)")
        endif()
      endforeach()
      if(backend STREQUAL "base")
        set(yv_CLIENT ON)
        list(APPEND client_options ${pieces})
      else()
        set(yv_POA ON)
        list(APPEND poa_options ${pieces})
      endif()
    else()
      list(APPEND pass "${arg}")
    endif()
  endforeach()
  if(yv_TIE)
    set(yv_POA ON)
    list(PREPEND poa_options -xTIE)
  endif()
  if(NOT yv_CLIENT AND NOT yv_POA)
    set(yv_CLIENT ON)
  endif()
  if(yv_AMI)
    list(PREPEND client_options -xAMICallbacks)
    list(PREPEND poa_options -xAMICallbacks)
  endif()
  set(switches)
  foreach(backend base poa)
    if(backend STREQUAL "base")
      set(selected ${yv_CLIENT})
      set(options ${client_options})
    else()
      set(selected ${yv_POA})
      set(options ${poa_options})
    endif()
    if(selected)
      list(JOIN options ":" text)
      if(text STREQUAL "")
        list(APPEND switches "-${backend}")
      else()
        list(APPEND switches "-${backend}:${text}")
      endif()
    endif()
  endforeach()

  set(includes)
  foreach(dir IN LISTS yv_INCLUDE_DIRS)
    get_filename_component(dir "${dir}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_SOURCE_DIR})
    list(APPEND includes "-I${dir}")
  endforeach()

  set(out "${yv_OUT_DIR}")
  if(NOT out)
    set(out "${CMAKE_CURRENT_BINARY_DIR}/yvidl/${yv_TARGET}")
  endif()
  get_filename_component(out "${out}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_BINARY_DIR})
  file(MAKE_DIRECTORY "${out}")

  set(generated)
  set(bases)
  foreach(file IN LISTS yv_IDL_FILES)
    get_filename_component(idl "${file}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_SOURCE_DIR})
    # yvidl names its outputs after the file without its last extension.
    get_filename_component(base "${idl}" NAME_WLE)
    if(base IN_LIST bases)
      message(FATAL_ERROR "yvidl_generate: two IDL files named ${base}.* would write the same files in ${out}")
    endif()
    list(APPEND bases "${base}")

    set(outputs)
    set(before)
    set(after)
    if(yv_CLIENT)
      list(APPEND outputs "${out}/${base}.hh" "${out}/${base}.cxx")
      # The client source is written only when the IDL file declares
      # something to define out of line; the build always expects one, so
      # the step leaves an empty file where none was written (and none
      # from an earlier run).
      set(before COMMAND ${CMAKE_COMMAND} -E rm -f "${out}/${base}.cxx")
      set(after COMMAND ${CMAKE_COMMAND} -E touch "${out}/${base}.cxx")
    endif()
    if(yv_POA)
      list(APPEND outputs "${out}/${base}S.hh" "${out}/${base}S.cxx")
    endif()
    set(targets)
    foreach(output IN LISTS outputs)
      list(APPEND targets -MQ "${output}")
    endforeach()

    set(depfile "${out}/${base}.d")
    set(depfile_args)
    if(CMAKE_GENERATOR MATCHES "Ninja|Makefiles")
      set(depfile_args DEPFILE "${depfile}")
    endif()
    add_custom_command(
      OUTPUT ${outputs}
      ${before}
      COMMAND yvidl::yvidl ${includes} ${pass} -MD -MF "${depfile}" ${targets} ${switches} "${idl}"
      ${after}
      MAIN_DEPENDENCY "${idl}"
      DEPENDS yvidl::yvidl
      ${depfile_args}
      WORKING_DIRECTORY "${out}"
      COMMENT "yvidl ${file}"
      VERBATIM)
    list(APPEND generated ${outputs})
  endforeach()

  target_sources(${yv_TARGET} PRIVATE ${generated})
  target_include_directories(${yv_TARGET} PUBLIC "${out}")
  target_link_libraries(${yv_TARGET} PUBLIC yvidl::runtime)
endfunction()
