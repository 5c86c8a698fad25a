// The POACxx generator's output files: their names, the fixed text around
// the declarations (include guard, includes, export-macro block) and the
// walks that write the declarations.
#include "GEN_POACxx.h"

#include "CxxPrinter.h"
#include "IDL_GlobalData.h"
#include "UTL_Indent.h"
#include "VIS_POA_HH.h"
#include "POA_VisitorFactories.h"
#include "VIS_POA_Impl.h"
#include "VIS_POA_TIE_HH.h"
#include "Visitor.h"

#include "YV_OutputFile.h"

#include <cctype>
#include <iostream>
#include <memory>

YV_String GEN_POACxx::skeleton_file_name(const YV_String& base, const YV_String& ext)
{
    return base + (ext.contains(".") ? "" : "S.") + ext;
}

void GEN_POACxx::output_own_include(std::ostream& os, const YV_String& file) const
{
    UTL_Indent top;
    CxxPrinter p(os, top);
    if (m_include_prefix.empty())
        p.print("#include \"$file$\"\n", {{"file", file.str()}});
    else
        p.print("#include <$prefix$/$file$>\n", {{"prefix", m_include_prefix.str()}, {"file", file.str()}});
}

void GEN_POACxx::setFileStrings()
{
    UTL_String* stripped = global_data()->stripped_filename();
    if (!stripped || !stripped->get_string())
        return;
    YV_String file(stripped->get_string());
    std::size_t dot = file.rfind('.');
    if (dot == YV_String::npos)
        return;
    m_base_name = file.substr(0, dot);
    m_header_name = skeleton_file_name(m_base_name, m_header_ext);
}

void GEN_POACxx::generate_hh()
{
    setFileStrings();
    YV_OutputFile out;
    out.open_or_exit((m_header_dir + m_header_name).str(), global_data()->prog_name(), ": Error: Could not open ");
    outputIncludes(out);
    outputDeclSpec(out);
    output_os_specific_header_stuff(out);

    AST_Root* root = global_data()->root();
    // Each factory hands its visitor over; it is deleted after its walk.
    std::unique_ptr<VIS_POA_HH> skeletons;
    std::unique_ptr<VIS_POA_TIE_HH> ties;
    try {
        skeletons.reset(VIS_POA_HH_Factory::find_factory(visitorFF())->create_VIS_POA_HH(out, 0, root, this));
        root->accept(skeletons.get());
        if (m_tie) {
            ties.reset(VIS_POA_TIE_HH_Factory::find_factory(visitorFF())->create_VIS_POA_TIE_HH(out, 0, root, this));
            root->accept(ties.get());
        }
        ties.reset();
        skeletons.reset();
    } catch (Visitor::VisitorException& e) {
        e.output_exception(std::cerr);
        ties.reset();
        skeletons.reset();
        // The header stays as far as it was written.
        out.commit_or_exit(global_data()->prog_name());
        throw;
    }
    out << "#endif\n";
    out.commit_or_exit(global_data()->prog_name());
}

void GEN_POACxx::generate_impl()
{
    YV_String file(global_data()->stripped_filename()->get_string());
    std::size_t dot = file.rfind('.');
    YV_String base = dot == YV_String::npos ? file : file.substr(0, dot);
    YV_String header = skeleton_file_name(base, m_header_ext);

    YV_OutputFile out;
    out.open_or_exit((m_stub_dir + skeleton_file_name(base, m_stub_ext)).str(), global_data()->prog_name(),
                     ": error: could not open ");
    output_copyright(out);
    out << "\n";
    output_own_include(out, header);
    out << "#include <zantic_sys/tc_pod_structs.h>\n"
           "#include <zantic_sys/nmval.h>\n"
           "\n";

    AST_Root* root = global_data()->root();
    // The factory hands the visitor over; it is deleted after the walk.
    std::unique_ptr<VIS_POA_Impl> definitions;
    try {
        definitions.reset(VIS_POA_Impl_Factory::find_factory(visitorFF())->create_VIS_POA_Impl(out, 0, root, this));
        root->accept(definitions.get());
        definitions.reset();
    } catch (Visitor::VisitorException& e) {
        e.output_exception(std::cerr);
        definitions.reset();
        out.commit_or_exit(global_data()->prog_name());
        throw;
    }
    out.commit_or_exit(global_data()->prog_name());
}

void GEN_POACxx::outputIncludes(std::ostream& os)
{
    UTL_Indent top;
    CxxPrinter p(os, top);
    const YV_String guard = make_legal_alpha_numeric_var(m_base_name);
    p.print("#ifndef _YV_GUARD_$guard$S_HH_\n#define _YV_GUARD_$guard$S_HH_\n\n", {{"guard", guard.str()}});
    output_copyright(os);
    p.print(m_tie ? "#include <zantic_sys/poa_tie_base.h>\n" : "#include <omg/PortableServer.hh>\n");
    p.print("#include <zantic_sys/yvcxx.h>\n"
            "#include <zantic_sys/yvstatichash.h>\n");
    if (ami_messaging_on() || ami_polling_on())
        p.print("#include <omg/MessagingS.hh>\n");
    outputIncludedIDL(os);

    if (!m_client_header_ext.contains("."))
        m_client_header_ext.insert(0, ".");
    output_own_include(os, m_base_name + m_client_header_ext);
    os << "\n\n";
}

void GEN_POACxx::outputIncludedIDL(std::ostream& os)
{
    for (const IDL_IncludedFile& included : global_data()->included_files()) {
        YV_String name(included.name.get_string());
        bool excluded = false;
        m_exclude_patterns.for_each([&](const YV_String& pattern, const YV_String&) {
            excluded = excluded || name.contains(pattern);
        });
        if (excluded)
            continue;
        if (name.contains("orb.idl") && included.flag && !m_orb_s_hh)
            continue;
        std::size_t idl = name.rfind(".idl");
        if (idl == YV_String::npos)
            continue;
        YV_String ext = included.flag ? m_standard_header_ext : m_header_ext;
        if (!ext.contains("."))
            ext.insert(0, "S.");
        name.replace(idl, 4, ext);
        os << "#include " << name << "\n";
    }
}

void GEN_POACxx::outputDeclSpec(std::ostream& os)
{
    if (!m_declspecs)
        return;
    if (m_declspec_name.empty()) {
        YV_String name = make_legal_alpha_numeric_var(m_base_name);
        for (std::size_t i = 0; i < name.length(); ++i)
            name[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[i])));
        m_declspec_name = name + "_EXT_API";
    }
    m_declspec = m_declspec_name;

    const YV_String& m = m_declspec;
    UTL_Indent top;
    CxxPrinter(os, top).print("\n\n"
                              "#if !defined($m$)\n"
                              "#if defined($m$_EXPORT)\n"
                              "#define $m$ YV_DECLSPEC_EXPORT\n"
                              "#else\n"
                              "#define $m$ YV_DECLSPEC_IMPORT\n"
                              "#endif\n"
                              "#endif\n\n",
                              {{"m", m.str()}});
}
