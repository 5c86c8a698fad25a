# Checks that no #include "..." in src/ goes upward: every folder below may
# include headers of its own folder and of the folders listed before it,
# nothing listed after it. Folders on one line (separated by "|") form one
# layer and may include each other.
#
#   cmake -DSRC=<repository>/src -P scripts/check_layers.cmake
#
# A source file that defines part of a class whose header lives elsewhere
# (named <Class>_<Part>.cpp) may include <Class>.h.
set(LAYERS
  "foundation"
  "frontend/options"
  "frontend/utl"
  "frontend/diag"
  "frontend/lexer"
  "frontend/preprocessor"
  "frontend/ast"
  "frontend/sema"
  "frontend/parser"
  "frontend/visitor"
  "frontend/global"
  "cxx/backend"
  "cxx|cxx/visitors|cxx/client"
  "poa/plugin|poa/hh|poa/impl|poa/opdict"
  "driver"
)

if(NOT SRC)
  message(FATAL_ERROR "check_layers: give -DSRC=<src folder>")
endif()

# The layer index of every folder, and of every header by its file name.
set(index 0)
foreach(layer ${LAYERS})
  string(REPLACE "|" ";" folders "${layer}")
  foreach(folder ${folders})
    set(layer_of_${folder} ${index})
    file(GLOB headers RELATIVE ${SRC}/${folder} ${SRC}/${folder}/*.h ${SRC}/${folder}/*.def)
    foreach(h ${headers})
      if(DEFINED header_${h})
        message(FATAL_ERROR "check_layers: ${h} stands in two folders")
      endif()
      set(header_${h} ${index})
      set(folder_of_${h} ${folder})
    endforeach()
  endforeach()
  math(EXPR index "${index} + 1")
endforeach()

set(violations 0)
foreach(layer ${LAYERS})
  string(REPLACE "|" ";" folders "${layer}")
  foreach(folder ${folders})
    file(GLOB files ${SRC}/${folder}/*.h ${SRC}/${folder}/*.cpp ${SRC}/${folder}/*.def)
    foreach(f ${files})
      get_filename_component(name ${f} NAME_WE)
      file(STRINGS ${f} includes REGEX "^#include \"[^\"]+\"")
      foreach(line ${includes})
        string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" h "${line}")
        if(NOT DEFINED header_${h})
          continue()
        endif()
        if(header_${h} GREATER layer_of_${folder})
          string(REGEX REPLACE "\\.h$" "" class "${h}")
          if(name MATCHES "^${class}_")
            continue()
          endif()
          message(SEND_ERROR "${folder}/${name}: includes ${h} of ${folder_of_${h}}, a layer above it")
          math(EXPR violations "${violations} + 1")
        endif()
      endforeach()
    endforeach()
  endforeach()
endforeach()

if(violations GREATER 0)
  message(FATAL_ERROR "check_layers: ${violations} include(s) going upward")
endif()
message(STATUS "check_layers: no include goes upward")
