#include "YV_Help.h"

#include "YV_BackendInfo.h"
#include "YV_BackendLoader.h"
#include "YV_IdlDir.h"
#include "IDL_Limits.h"

#include <iomanip>
#include <ostream>
#include <string>

namespace {

// GEN_CPlusPlus::print_switches(std::ostream&) of the C++ base library, by
// its linker name: the driver does not link that library, it reaches it
// through a loaded back end.
const char print_switches_symbol[] = "_ZN13GEN_CPlusPlus14print_switchesERSo";
using PrintSwitches = void (*)(std::ostream&);

// The switch names the C++ base accepts, for a base library that cannot
// list them itself.
const char* const base_switch_names[] = {
    "AMICallbacks", "NoNamespaces", "NoDispatch", "RTTI", "EnforceRaises", "Declspecs", "AMIPolling",
};

void option_line(std::ostream& out, const std::string& option, const std::string& text)
{
    out << "  " << std::left << std::setw(24) << option << text << '\n';
}

} // namespace

void YV_Help::print(std::ostream& out)
{
    print_driver_usage(out);
    out << "\nBack ends are loaded from "
        << (m_loader.plugin_dir().empty() ? std::string("the system's library path") : m_loader.plugin_dir())
        << "\n(set by YVIDL_PLUGIN_DIR, else plugin-dir in the configuration file,\n"
           "else the plug-in directory relative to yvidl).\n";
    const std::string idl_dir = YV_IdlDir::find();
    out << "Standard IDL files (#include <orb.idl>) are searched after every -I in\n"
        << (idl_dir.empty() ? std::string("(no IDL directory found)") : idl_dir) << ".\n";
    print_backend_usages(out);
    print_switch_names(out);
    out.flush();
}

void YV_Help::print_driver_usage(std::ostream& out)
{
    out << "Usage: yvidl [options] file.idl...\n"
           "\n"
           "Compiles OMG IDL files. Without a back-end switch each file is only checked.\n"
           "\n"
           "Options:\n";
    option_line(out, "-I<dir>, -I <dir>", "Search <dir> for #include files (before the IDL directory).");
    option_line(out, "-D<name>[=<value>]", "Define a preprocessor macro (value 1 when omitted).");
    option_line(out, "-U<name>", "Undefine a preprocessor macro.");
    option_line(out, "-E", "Write the preprocessed text to standard output; run no back end.");
    option_line(out, "-MD", "Write a dependency file (make rule) for each input, <base>.d");
    option_line(out, "", "beside its outputs.");
    option_line(out, "-MF <file>", "Write the dependency rules to <file>.");
    option_line(out, "-MT <target>", "Name <target> as the rule's target (instead of the outputs).");
    option_line(out, "-MQ <target>", "The same, quoting characters special to make.");
    option_line(out, "-MP", "Add an empty rule for each included file.");
    option_line(out, "--print-idl-dir", "Show the directory of the standard IDL files (orb.idl ...).");
    option_line(out, "-h, --help", "Show this help, with the back ends' options.");
    option_line(out, "--version", "Show the compiler's version.");
    option_line(out, "-fmax-<name>=<n>", "Raise (or lower) one of the limits below.");
    option_line(out, "--", "Take every later argument as a file name.");
    out << "\nLimits on what one input may make the compiler do (-fmax-<name>=<n>;\n"
           "reaching one is an error at the place where it happened):\n";
    const IDL_Limits defaults;
    for (const IDL_Limits::Entry* e = IDL_Limits::begin_entries(); e != IDL_Limits::end_entries(); ++e)
        option_line(out, std::string(e->name) + " = " + std::to_string(defaults.*(e->member)), e->meaning);
    out << "\nBack ends (several may be given; each runs in turn, in command-line order,\n"
           "for every file; output files go to the current directory unless the\n"
           "back end's options say otherwise):\n";
    for (const YV_BackendInfo& info : YV_BackendInfo::known())
        option_line(out, "-" + info.switch_name + "[:<options>]", info.summary);
    out << "  <options> is the back end's colon-delimited option list, e.g. -poa:-xTIE:-p3\n";
}

void YV_Help::print_backend_usages(std::ostream& out)
{
    for (const YV_BackendInfo& info : YV_BackendInfo::known()) {
        std::string error;
        YV_Backend* backend = m_loader.load(info, error);
        out << "\nBack end -" << info.switch_name << " (" << m_loader.library_path(info) << "):\n";
        if (backend)
            backend->print_usage(out);
        else
            out << "  not available: " << error << '\n';
    }
}

void YV_Help::print_switch_names(std::ostream& out)
{
    out << "\nC++ mapping switches of -poa and -base (-x<Name> sets, +x<Name> clears):\n";
    for (const YV_BackendInfo& info : YV_BackendInfo::known()) {
        YV_Backend* backend = m_loader.loaded(info);
        if (!backend)
            continue;
        if (void* fn = backend->symbol(print_switches_symbol)) {
            reinterpret_cast<PrintSwitches>(fn)(out);
            return;
        }
    }
    for (const char* name : base_switch_names)
        out << "  -x" << name << '\n';
}
