// The plug-in library's entry points and its load-time objects.
//
// Loading the library constructs exactly two objects, in this order: the
// one generator, then the library's registration with the foundation
// library. Unloading destroys them in the reverse order. Both live in this
// one file so that their order is the order of definition.
//
// Nothing else runs at load. A Windows build would also turn off the
// per-thread attach/detach notifications for the library; ELF shared
// objects get no such notifications, so there is nothing to turn off here.
#include "POACxxInit.h"

#include "GEN_POACxx.h"
#include "YV_Shlib_Init.h"

#include <iostream>

namespace {

GEN_POACxx g_generator;

const YV_Shlib_Flags LIBRARY_FLAGS = {0x201, 0};
const YV_Shlib_Description LIBRARY = {"yv_poa_cxx_ibe", "3", &LIBRARY_FLAGS, nullptr};
const YV_Shlib_Dependency DEPENDENCIES[] = {
    {"yv_cxx_ibe", "3", 0x201},
    {"yv_idl_cfe", "3", 0x201},
    {"yv_ifc", "3", 0x10201},
    {nullptr, nullptr, 0},
};

YV_Shlib_Init g_registration(LIBRARY, DEPENDENCIES, YV_global_default_exc_handler);

const char* const USAGE[] = {
    "\t\t\tGenerates code for the POA C++ OMG Mapping.\n",
    "\t\t\tOptions: (colon-delimited i.e. -poa:-[opt]:-[opt])\n",
    "\t\t\t-i<path-prefix> Prepends path-prefix to generated\n",
    "\t\t\t                #include's.\n",
    "\t\t\t-d[declspec]    Creates NT declspecs for dllexport\n",
    "\t\t\t                dllimport. If you omit declspec, \n",
    "\t\t\t                idl uses the stripped filename.\n",
    "\t\t\t-c<stub-ext>    Set default stub extension.  The\n",
    "\t\t\t                default is .cxx\n",
    "\t\t\t-s<stub-ext>    Same as -c.\n",
    "\t\t\t-h<header-ext>  Set default header extension.  The\n",
    "\t\t\t                default is .hh\n",
    "\t\t\t-b<header-ext>  Set header extension for client-side\n",
    "\t\t\t                header file. The default is .hh. Should\n",
    "\t\t\t                match suffix specified with -base:-h\n",
    "\t\t\t-Oh<path>       Directory to place header(.hh) files.\n",
    "\t\t\t                Trailing directory char needed.\n",
    "\t\t\t                i.e. -Oh../include/  \n",
    "\t\t\t-Oc<path>       Directory to place stub(.cxx) files.\n",
    "\t\t\t                Trailing directory char needed.\n",
    "\t\t\t                i.e. -Oc../stub/  \n",
    "\t\t\t-p<multiple>    Set the dispatch hash table size \n",
    "\t\t\t                to be 2 to the power of <multiple>\n",
    "\t\t\t-m<pattern>     #included idl file matching <pattern>\n",
    "\t\t\t                will not #included in generated code.\n",
    "\t\t\t                i.e. -momg/orb.idl will suppress the\n",
    "\t\t\t                generation of #include<omg/orbS.hh>\n",
    "\t\t\t-xTIE           Generate POA TIE classes\n",
};

} // namespace

CodeGenerator* POACxxInit() { return &g_generator; }

void POACxxUsage()
{
    for (const char* line : USAGE)
        std::cerr << line;
}
