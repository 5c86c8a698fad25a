#include "IDL_Frontend.h"

#include "AST_Root.h"
#include "IDL_Lexer.h"
#include "IDL_Names.h"
#include "IDL_Parser.h"
#include "IDL_Preprocessor.h"
#include "IDL_RepoIds.h"
#include "idl_msg_header.h"

#include <map>
#include <ostream>
#include <set>

namespace {

// Lexes, parses and checks preprocessed text; null when any error was
// reported on the way (preprocessing included).
std::unique_ptr<IDL_GlobalData> build(const PP_Result& pp, bool pp_ok, long errors_before,
                                      const std::string& main_file, const IDL_FrontendOptions& options)
{
    auto root = std::make_unique<AST_Root>();
    std::set<std::string> scoped_includes;
    std::map<std::string, std::size_t> positions;
    if (pp_ok) {
        IDL_Lexer lexer(pp.text, main_file);
        lexer.run();
        IDL_Names names(root.get());
        IDL_RepoIds ids;
        IDL_Parser parser(lexer, root.get(), names, ids, options.limits);
        parser.parse();
        ids.assign();
        scoped_includes = parser.scoped_includes();
        positions = parser.include_positions();
    }
    if (!pp_ok || idl_error_count() != errors_before)
        return nullptr;
    auto gd = std::make_unique<IDL_GlobalData>(std::move(root), main_file, options.prog_name);
    for (const PP_Include& inc : pp.includes) {
        const auto at = positions.find(inc.path);
        gd->add_included_file(inc.written, inc.flag, scoped_includes.count(inc.path) != 0,
                              at == positions.end() ? 0 : at->second);
    }
    gd->set_files_read(pp.files);
    return gd;
}

} // namespace

std::unique_ptr<IDL_GlobalData> IDL_Frontend::parse_file(const std::string& path)
{
    long before = idl_error_count();
    PP_Result pp;
    bool ok = IDL_Preprocessor(m_options).run_file(path, pp);
    return build(pp, ok && idl_error_count() == before, before, path, m_options);
}

std::unique_ptr<IDL_GlobalData> IDL_Frontend::parse_text(const std::string& file_name, const std::string& text)
{
    long before = idl_error_count();
    PP_Result pp;
    bool ok = IDL_Preprocessor(m_options).run_text(file_name, text, pp);
    return build(pp, ok && idl_error_count() == before, before, file_name, m_options);
}

bool IDL_Frontend::preprocess_file(const std::string& path, std::ostream& out)
{
    PP_Result pp;
    bool ok = IDL_Preprocessor(m_options).run_file(path, pp);
    out << pp.text;
    return ok;
}
