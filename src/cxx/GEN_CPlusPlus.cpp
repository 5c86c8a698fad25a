#include "GEN_CPlusPlus.h"

#include "CPPResolver.h"
#include "CxxRuntimeNames.h"
#include "AST_Root.h"
#include "IDL_GlobalData.h"
#include "UTL_ArgParser.h"
#include "Visitor.h"
#include "CxxVisitorFactories.h"
#include "VIS_CPP_MainStartPoint.h"
#include "VIS_HH_MainStartPoint.h"
#include "YV_Config.h"
#include "YV_File.h"
#include "YV_OutputFile.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#ifndef YV_VERSION_TEXT
#define YV_VERSION_TEXT "unknown"
#endif

char GEN_CPlusPlus::_narrow_tag = 0;

namespace {

// One -x switch of the base generator, for the usage text. Each name reads
// the way "-x<Name>" changes the generator (code_off_switch).
struct CxxSwitch {
    const char* name;
    const char* help;
};

const CxxSwitch cxx_switches[] = {
    {"AMICallbacks", "generate the asynchronous (AMI) reply-handler callbacks"},
    {"AMIPolling", "include the Messaging support for AMI pollers"},
    {"NoNamespaces", "map IDL modules to nested classes instead of C++ namespaces"},
    {"NoDispatch", "write no operation dispatch functions or lookup tables"},
    {"RTTI", "narrow servants with dynamic_cast instead of narrow tags"},
    {"EnforceRaises", "let only system exceptions and the raised user exceptions leave a dispatch function"},
    {"Declspecs", "write export macros on generated classes"},
};

// An extension joined to a base name: "." then the extension, unless the
// extension holds a "." already (then it is the whole suffix).
YV_String with_extension(const YV_String& base, const YV_String& ext)
{
    return ext.contains(".") ? base + ext.str() : base + ("." + ext.str());
}

// A directory as it is joined to file names: ending in the separator.
YV_String as_directory(const char* text)
{
    YV_String dir(text ? text : "");
    if (!dir.empty() && dir[dir.length() - 1] != YV_File::SEPARATOR)
        dir += YV_File::SEPARATOR;
    return dir;
}

} // namespace

GEN_CPlusPlus::GEN_CPlusPlus() : m_header_ext("hh"), m_stub_ext("cxx"), m_standard_header_ext("hh") {}

GEN_CPlusPlus::~GEN_CPlusPlus() = default;

VisitorFF* GEN_CPlusPlus::visitorFF() { return &m_visitor_ff; }

void GEN_CPlusPlus::set_options(const char* text) { set_options(text, 1, 0); }

void GEN_CPlusPlus::clear_options(const char* text) { set_options(text, 0, 1); }

void GEN_CPlusPlus::set_options(const char* text, long on, long off)
{
    if (!text)
        return;
    UTL_ArgParser parser;
    parser.initGetOptString(text);
    const std::string grammar = option_grammar(false);
    for (int letter; (letter = parser.getOptString(grammar.c_str())) != -1;)
        if (!apply_base_option(letter, parser.optarg(), on, off))
            std::cerr << "Unknown C++ generator option '" << static_cast<char>(letter) << "'" << std::endl;
}

namespace {

enum OptionValue { YV_NO_VALUE, YV_MAY_VALUE, YV_NEEDS_VALUE };
enum OptionGenerators { YV_ALL, YV_PLUGIN };

struct OptionLetter {
    char letter;
    OptionValue value;
    OptionGenerators generators;
};

const OptionLetter option_letters[] = {
#define YV_OPTION(letter, value, generators) {letter, value, generators},
#include "CxxOptionLetters.def"
#undef YV_OPTION
};

} // namespace

std::string GEN_CPlusPlus::option_grammar(bool with_plugin_letters)
{
    std::string grammar;
    for (const OptionLetter& o : option_letters) {
        if (o.generators == YV_PLUGIN && !with_plugin_letters)
            continue;
        grammar += o.letter;
        if (o.value != YV_NO_VALUE)
            grammar += ':';
    }
    return grammar;
}

bool GEN_CPlusPlus::option_needs_value(int letter)
{
    for (const OptionLetter& o : option_letters)
        if (o.letter == letter)
            return o.value == YV_NEEDS_VALUE;
    return false;
}

bool GEN_CPlusPlus::apply_base_option(int letter, const char* value, long on, long off)
{
    switch (letter) {
    case 'h':
        m_header_ext = value ? value : "";
        break;
    case 'c':
    case 's':
        m_stub_ext = value ? value : "";
        break;
    case 'i':
        if (value)
            m_include_prefix = value;
        break;
    case 'd':
        m_declspecs = on;
        if (value)
            m_declspec_name = value;
        break;
    case 'O':
        if (value && value[0] == 'h')
            m_header_dir = as_directory(value + 1);
        else if (value && (value[0] == 'c' || value[0] == 's'))
            m_stub_dir = as_directory(value + 1);
        else
            std::cerr << "Unknown C++ generator option 'O" << (value ? std::string(value, value[0] ? 1 : 0) : "")
                      << "'" << std::endl;
        break;
    case 'x':
        code_off_switch(value ? value : "", on, off);
        break;
    default:
        return false;
    }
    return true;
}

void GEN_CPlusPlus::code_off_switch(const char* name, long on, long off)
{
    const std::string n = name ? name : "";
    if (n == "AMICallbacks") {
        m_ami_callbacks = on;
        m_ami_messaging = on;
    } else if (n == "AMIPolling") {
        m_ami_polling = on;
    } else if (n == "NoNamespaces") {
        m_namespace_support = off;
    } else if (n == "NoDispatch") {
        m_dispatch = off;
    } else if (n == "RTTI") {
        m_rtti = on;
    } else if (n == "EnforceRaises") {
        m_enforce_raises = on;
    } else if (n == "Declspecs") {
        m_declspecs = on;
    } else {
        std::cerr << "Unknown C++ generator switch '" << n << "'" << std::endl;
    }
}

void GEN_CPlusPlus::print_switches(std::ostream& os)
{
    for (const CxxSwitch& s : cxx_switches) {
        std::string name = "-x" + std::string(s.name);
        name.resize(name.size() < 18 ? 18 : name.size() + 1, ' ');
        os << "  " << name << s.help << "\n";
    }
}

void GEN_CPlusPlus::print_usage(std::ostream& os)
{
    os << "\t\t\tGenerates the client side of the C++ OMG Mapping.\n"
          "\t\t\tOptions: (colon-delimited i.e. -base:-[opt]:-[opt])\n"
          "\t\t\t-h<header-ext>  Set the header extension (default hh)\n"
          "\t\t\t-c<stub-ext>    Set the stub extension (default cxx)\n"
          "\t\t\t-s<stub-ext>    Same as -c\n"
          "\t\t\t-i<path-prefix> Prepends path-prefix to generated #include's\n"
          "\t\t\t-d[declspec]    Export macros on generated classes\n"
          "\t\t\t-Oh<path>       Directory to place header files\n"
          "\t\t\t-Oc<path>       Directory to place stub files\n"
          "\t\t\t-x<Switch>      One of the switches below\n";
    for (const CxxSwitch& s : cxx_switches)
        os << "\t\t\t  " << s.name << "\n";
}

void GEN_CPlusPlus::output_copyright(std::ostream& os)
{
    os << "// Generated by yvidl " << YV_VERSION_TEXT << " (" << plugin_name() << " back end) from IDL.\n"
       << "// Do not edit: the file is written anew whenever its IDL file is compiled.\n"
       << "\n";
}

const char* GEN_CPlusPlus::plugin_name() const { return "Cxx"; }

void GEN_CPlusPlus::generate_client()
{
    m_companions_done.clear();
    m_nested_names.clear();
    m_nested_names_known = false;
    m_includes_written = 0;
    setFileStrings();
    // Cleared again by an error that ends the run, as on success.
    struct Writing {
        bool& flag;
        ~Writing() { flag = false; }
    } writing{m_writing_client};
    m_writing_client = true;
    generate_hh();
    generate_cxx();
}

const std::set<std::string>* GEN_CPlusPlus::capture_guard()
{
    return m_writing_client ? &nested_names() : nullptr;
}

const std::set<std::string>* capture_guard_of(CodeGenerator* gen)
{
    auto* cxx = gen ? static_cast<GEN_CPlusPlus*>(gen->narrow(&GEN_CPlusPlus::_narrow_tag)) : nullptr;
    return cxx ? cxx->capture_guard() : nullptr;
}

// Both files are written as they are made, straight into the output file:
// the text of a large IDL file is tens of megabytes. An error in the middle
// ends the run with the file discarded (nothing changes under its name).
void GEN_CPlusPlus::generate_hh()
{
    IDL_GlobalData* data = global_data();
    if (m_base_name.empty() || !data)
        return;
    YV_OutputFile text;
    open_output_file(text, m_header_dir + m_header_name.str());
    outputIncludes(text);
    outputDeclSpec(text);
    output_os_specific_header_stuff(text);
    VIS_HH_MainStartPoint declarations(text, 0, data->root(), this);
    data->root()->accept(&declarations);
    text << "#endif\n";
    text.commit_or_exit(prog_name());
}

void GEN_CPlusPlus::generate_cxx()
{
    IDL_GlobalData* data = global_data();
    if (m_base_name.empty() || !data)
        return;
    YV_OutputFile text;
    open_output_file(text, m_stub_dir + m_stub_name.str());
    output_copyright(text);
    text << "#include ";
    if (m_include_prefix.empty())
        text << "\"" << m_header_name << "\"\n";
    else
        text << "<" << m_include_prefix << "/" << m_header_name << ">\n";
    output_stub_system_includes(text);
    output_os_specific_stub_stuff(text);
    text << "\n";
    const std::uint64_t prologue = text.size();
    VIS_CPP_MainStartPoint visitor(text, 0, data->root(), this);
    data->root()->accept(&visitor);
    // A file that would hold no definition is not written.
    if (text.size() == prologue)
        text.discard();
    else
        text.commit_or_exit(prog_name());
}

std::string GEN_CPlusPlus::prog_name() const
{
    IDL_GlobalData* data = global_data();
    return data ? data->prog_name() : "yvidl";
}

void GEN_CPlusPlus::open_output_file(YV_OutputFile& out, const YV_String& path) const
{
    out.open_or_exit(path.str(), prog_name(), ": Error: Could not open ");
}

void GEN_CPlusPlus::generate_obv_hh() {}

void GEN_CPlusPlus::generate_obv_cxx() {}

void GEN_CPlusPlus::setFileStrings()
{
    IDL_GlobalData* data = global_data();
    if (!data || !data->stripped_filename())
        return;
    const YV_String stripped(data->stripped_filename()->str());
    const std::size_t dot = stripped.rfind('.');
    m_base_name = dot == YV_String::npos ? stripped : stripped.substr(0, dot);
    m_header_name = with_extension(m_base_name, m_header_ext);
    m_stub_name = with_extension(m_base_name, m_stub_ext);
}

namespace {

// Eight hex digits that tell IDL files of one base name apart: a digest
// (FNV-1a) of the file's text, or nothing when it cannot be read again.
std::string text_digest(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return "";
    std::uint32_t h = 2166136261u;
    for (std::istreambuf_iterator<char> it(in), end; it != end; ++it)
        h = (h ^ static_cast<unsigned char>(*it)) * 16777619u;
    char hex[9];
    std::snprintf(hex, sizeof hex, "%08X", static_cast<unsigned>(h));
    return hex;
}

} // namespace

void GEN_CPlusPlus::outputIncludes(std::ostream& os)
{
    // Files of one base name in different directories (a/x.idl, b/x.idl)
    // must not share the guard, or a file including both headers would see
    // one of them only.
    IDL_GlobalData* main = global_data();
    const YV_String guard = "_YV_GUARD_" + make_legal_alpha_numeric_var(m_base_name).str() + "_HH_" +
                            (main && main->main_filename() ? text_digest(main->main_filename()->str()) : "");
    os << "#ifndef " << guard << "\n";
    os << "#define " << guard << "\n\n";
    output_copyright(os);
    output_header_system_includes(os);
    std::vector<std::string> runtime_headers;
    if (m_ami_messaging || m_ami_polling)
        runtime_headers.push_back("<omg/Messaging.hh>");
    // Declarations that the runtime defines itself are taken from its headers.
    if (IDL_GlobalData* data = global_data(); data && name_resolver())
        for (const std::string& h : CxxRuntimeNames::headers_for(data->root(), *name_resolver()))
            if (std::find(runtime_headers.begin(), runtime_headers.end(), h) == runtime_headers.end())
                runtime_headers.push_back(h);
    for (const std::string& h : runtime_headers)
        os << "#include " << h << "\n";
    outputIncludedIDL(os);
    os << "\n\n";
}

// The include lines of the directives that stand before the main file's
// first declaration. The others are written where they stand among its
// declarations (write_includes_before): two files that include each other
// declare their names ahead of the include for the other file to use.
void GEN_CPlusPlus::outputIncludedIDL(std::ostream& os)
{
    IDL_GlobalData* data = global_data();
    if (!data)
        return;
    const auto& decls = data->root()->decls();
    std::size_t first = 0;
    while (first < decls.size() && !decls[first]->in_main_file())
        ++first;
    write_includes_before(os, first);
}

bool GEN_CPlusPlus::write_includes_before(std::ostream& os, std::size_t position)
{
    IDL_GlobalData* data = global_data();
    if (!data)
        return false;
    bool wrote = false;
    const std::vector<IDL_IncludedFile>& included = data->included_files();
    for (; m_includes_written < included.size() && included[m_includes_written].position <= position;
         ++m_includes_written) {
        const IDL_IncludedFile& f = included[m_includes_written];
        // A file included inside a module body is written out in place.
        if (f.in_body)
            continue;
        // "x.idl", "x.pidl" or "x": the header is x with the header
        // extension. An included C/C++ header has no header of its own.
        const std::string& written = f.name.str();
        if (written.size() < 3)
            continue;
        std::string file = written.substr(1, written.size() - 2);
        const std::size_t dot = file.rfind('.');
        const std::size_t slash = file.rfind('/');
        if (dot != std::string::npos && (slash == std::string::npos || dot > slash)) {
            static const std::set<std::string> cxx_headers{"h", "hh", "hpp", "hxx", "H"};
            if (cxx_headers.count(file.substr(dot + 1)))
                continue;
            file.erase(dot);
        }
        const YV_String& ext = f.flag ? m_standard_header_ext : m_header_ext;
        os << "#include " << written.front() << file << (ext.contains(".") ? ext.str() : "." + ext.str())
           << written.back() << "\n";
        wrote = true;
    }
    return wrote;
}

void GEN_CPlusPlus::output_header_system_includes(std::ostream& os) { os << "#include <zantic_sys/yvcxx.h>\n"; }

void GEN_CPlusPlus::output_stub_system_includes(std::ostream& os)
{
    os << "#include <zantic_sys/YV_Cxx/AnyInsert.h>\n"
          "#include <zantic_sys/YV_Cxx/Operation.h>\n"
          "#include <zantic_sys/YV_Cxx/narrow_reference.h>\n";
}

void GEN_CPlusPlus::output_os_specific_header_stuff(std::ostream&) {}

void GEN_CPlusPlus::output_os_specific_stub_stuff(std::ostream&) {}

void GEN_CPlusPlus::output_obv_includes(std::ostream&) {}

void GEN_CPlusPlus::outputDeclSpec(std::ostream& os)
{
    if (!m_declspecs)
        return;
    if (m_declspec_name.empty()) {
        YV_String upper = make_legal_alpha_numeric_var(m_base_name);
        for (std::size_t i = 0; i < upper.length(); ++i)
            upper[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(upper[i])));
        m_declspec_name = upper + "_EXT_API";
    }
    m_declspec = m_declspec_name;
    const std::string& m = m_declspec.str();
    os << "\n\n"
       << "#if !defined(" << m << ")\n"
       << "#if defined(" << m << "_EXPORT)\n"
       << "#define " << m << " YV_DECLSPEC_EXPORT\n"
       << "#else\n"
       << "#define " << m << " YV_DECLSPEC_IMPORT\n"
       << "#endif\n"
       << "#endif\n\n";
}

void GEN_CPlusPlus::read_config_file()
{
    if (const std::string* text = YV_Config::current().get(std::string("options.") + plugin_name()))
        set_options(text->c_str());
}

void GEN_CPlusPlus::add_client_declaration_factories()
{
    // The finder takes each factory over and deletes it when it is done.
    VisitorFF* ff = visitorFF();
    ff->add_factory(VIS_Client_DeclareArgs_Typedef_Factory::FFKey, new VIS_Client_DeclareArgs_Typedef_Factory);
    ff->add_factory(VIS_HH_ABC_OpReturn_Typedef_Factory::FFKey, new VIS_HH_ABC_OpReturn_Typedef_Factory);
    ff->add_factory(VIS_HH_ABC_OpArg_Typedef_Factory::FFKey, new VIS_HH_ABC_OpArg_Typedef_Factory);
    ff->add_factory(VIS_Client_SetTypeCode_Factory::FFKey, new VIS_Client_SetTypeCode_Factory);
    ff->add_factory(VIS_Client_TypeCode_Factory::FFKey, new VIS_Client_TypeCode_Factory);
    ff->add_factory(VIS_Client_DeclareAsst_Factory::FFKey, new VIS_Client_DeclareAsst_Factory);
    ff->add_factory(VIS_Client_DeclareFullAsstForTypedef_Factory::FFKey,
                    new VIS_Client_DeclareFullAsstForTypedef_Factory);
    ff->add_factory(VIS_Client_DeclDispStreamable_Factory::FFKey, new VIS_Client_DeclDispStreamable_Factory);
    ff->add_factory(VIS_Client_DeclareArgs_Factory::FFKey, new VIS_Client_DeclareArgs_Factory);
}

void GEN_CPlusPlus::init_factory_finder()
{
    add_client_declaration_factories();
    VisitorFF* ff = visitorFF();
    ff->add_factory(VIS_HH_ABC_OperationArg_Factory::FFKey, new VIS_HH_ABC_OperationArg_Factory);
    ff->add_factory(VIS_HH_ABC_OpReturn_Factory::FFKey, new VIS_HH_ABC_OpReturn_Factory);
}

YV_String GEN_CPlusPlus::strip_out_quotes(const char* text)
{
    YV_String s(text ? text : "");
    const std::size_t n = s.length();
    if (n >= 2 && ((s[0] == '"' && s[n - 1] == '"') || (s[0] == '<' && s[n - 1] == '>')))
        return s.substr(1, n - 2);
    return s;
}

YV_String GEN_CPlusPlus::make_legal_alpha_numeric_var(const YV_String& text)
{
    YV_String out(text);
    for (std::size_t i = 0; i < out.length(); ++i) {
        const unsigned char c = static_cast<unsigned char>(out[i]);
        if (!std::isalnum(c) && c != '_')
            out[i] = '_';
    }
    if (!out.empty() && std::isdigit(static_cast<unsigned char>(out[0])))
        out.insert(0, "_");
    return out;
}

namespace {

// Most nested names repeat (argument and member names): `seen` turns them
// away by hash before the ordered set is searched.
void collect_nested_names(UTL_Scope* s, bool nested, NameResolver& resolver, std::unordered_set<std::string_view>& seen,
                          std::set<std::string>& out)
{
    for (const auto& d : s->decls()) {
        if (nested) {
            const std::string& name = resolver.local_name(d.get());
            if (seen.insert(name).second)
                out.insert(name);
        }
        if (UTL_Scope* inner = DeclAsScope(d.get()))
            collect_nested_names(inner, true, resolver, seen, out);
    }
}

} // namespace

const std::set<std::string>& GEN_CPlusPlus::nested_names()
{
    if (!m_nested_names_known && global_data() && name_resolver()) {
        std::unordered_set<std::string_view> seen;
        collect_nested_names(global_data()->root(), false, *name_resolver(), seen, m_nested_names);
        m_nested_names_known = true;
    }
    return m_nested_names;
}

void GEN_CPlusPlus::generate(IDL_GlobalData* data, const char* options)
{
    set_global_data(data);
    init_factory_finder();
    auto resolver = std::make_unique<CPPResolver>(this);
    resolver->set_clash_prefix("_cxx_");
    if (data)
        resolver->resolve_clashes(data->root());
    set_name_resolver(resolver.get());
    read_config_file();
    set_options(options);
    try {
        generate_client();
    } catch (Visitor::VisitorException& e) {
        // The error ends the run; the file being written is not written.
        e.output_exception(std::cerr);
    }
    set_name_resolver(nullptr);
}

void* GEN_CPlusPlus::narrow(char* tag) { return tag == &_narrow_tag ? this : CodeGenerator::narrow(tag); }
