// The built-in preprocessor of IDL files: includes, macros, conditional
// groups, line control, pass-through pragmas and back-end blocks. Its output
// is the text the IDL lexer reads (the format is in docs/preprocessor.md):
// tokens on the lines they came from, GCC-style line markers, the pragmas
// prefix, ID and version as lines of their own, and back-end blocks
// (%{NAME ... %}) as written.
#ifndef IDL_PREPROCESSOR_H
#define IDL_PREPROCESSOR_H

#include "IDL_FrontendOptions.h"
#include "PP_ExprEvaluator.h"
#include "PP_FileCache.h"
#include "PP_GuardDetector.h"
#include "PP_Lexer.h"
#include "PP_MacroExpander.h"
#include "PP_MacroTable.h"
#include "PP_OutputWriter.h"
#include "PP_Reporter.h"
#include "PP_Result.h"
#include "PP_SpellingArena.h"
#include "PP_TokenSource.h"

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

class IDL_Preprocessor : private PP_TokenSource, private PP_Reporter {
public:
    // After this many errors the run stops. Other bounds are the options'
    // limits (IDL_Limits).
    static constexpr std::size_t kMaxErrors = 200;

    explicit IDL_Preprocessor(const IDL_FrontendOptions& options);
    ~IDL_Preprocessor() override;
    IDL_Preprocessor(const IDL_Preprocessor&) = delete;
    IDL_Preprocessor& operator=(const IDL_Preprocessor&) = delete;

    // Preprocesses the file at `path`; "..." includes are looked up in its
    // directory first, then in the include directories. False when an error
    // was reported; `out` then holds what could be made of the input.
    bool run_file(const std::string& path, PP_Result& out);
    // The same for a text held in memory, reported under `file_name`; its
    // includes are looked up in the include directories only.
    bool run_text(const std::string& file_name, const std::string& text, PP_Result& out);

private:
    enum class Mode { Text, Args };

    // One open #if/#ifdef/#ifndef group.
    struct Conditional {
        std::string directive;  // "if", "ifdef" or "ifndef"
        std::uint32_t line;
        std::uint32_t col;
        bool parent_active;     // the text around the group is active
        bool active;            // the current branch is being read
        bool taken;             // some branch was (or can no longer be) chosen
        bool else_seen;
    };

    // One file being read.
    struct Frame {
        Frame(PP_FileEntry* e, std::string_view text, PP_SpellingArena& arena, PP_Reporter* reporter)
            : entry(e), lexer(text, arena, reporter)
        {
        }
        PP_FileEntry* entry;
        std::string name;        // presumed name: as opened, or as #line set it
        std::string dir;         // where its "..." includes are looked up first
        bool search_dir = true;  // false for a text held in memory
        bool silent = false;     // predefinitions: no output, no markers
        PP_Lexer lexer;
        std::vector<Conditional> conds;
        PP_GuardDetector guard;
    };

    bool run(PP_FileEntry* main, const std::string& name, const std::string& dir, bool search_dir,
             PP_Result& out);
    void predefine();
    void run_silent(const std::string& name, std::string text);
    void enter(PP_FileEntry* entry, const std::string& name, const std::string& dir, bool search_dir,
               bool silent);
    bool leave();
    Frame& top() { return *m_frames.back(); }
    bool skipping(const Frame& f) const { return !f.conds.empty() && !f.conds.back().active; }

    // PP_TokenSource: the files' tokens, directives handled on the way.
    void next(PP_Token& tok) override;
    bool next_is_lparen() override;
    void next_in_args(PP_Token& tok) override;
    void fetch(PP_Token& tok, Mode mode);

    // PP_Reporter
    void error(IDL_Diag id, std::uint32_t line, std::uint32_t col,
               std::initializer_list<std::string> args = {}) override;
    void warning(IDL_Diag id, std::uint32_t line, std::uint32_t col,
                 std::initializer_list<std::string> args = {}) override;
    const std::string& current_file() const override;

    // Inactive groups and back-end blocks.
    void skip_group(Frame& f);
    void backend_block(Frame& f, bool active);

    // Directives; `hash` is the directive's '#'.
    void directive(const PP_Token& hash, Mode mode);
    void read_line(Frame& f, std::vector<PP_Token>& tokens);
    void extra_tokens(const std::vector<PP_Token>& tokens, std::size_t from, const PP_Token& hash,
                      const char* directive);
    void do_if(Frame& f, const PP_Token& hash, const std::string& kind);
    void do_elif(Frame& f, const PP_Token& hash);
    void do_else(Frame& f, const PP_Token& hash);
    void do_endif(Frame& f, const PP_Token& hash);
    bool eval_condition(const std::vector<PP_Token>& tokens, const PP_Token& hash, const char* directive);
    bool macro_name(const std::vector<PP_Token>& tokens, const PP_Token& hash, const char* directive);
    void do_define(const PP_Token& hash);
    void do_undef(const PP_Token& hash);
    void do_include(Frame& f, const PP_Token& hash);
    // Reads the file an #include names; answers the path it was found as
    // (empty when it was not found).
    std::string include_file(Frame& f, const std::string& name, bool angle, const PP_Token& where);
    void do_line(Frame& f, const std::vector<PP_Token>& tokens, const PP_Token& hash, bool marker_form);
    void do_diagnostic(Frame& f, const PP_Token& hash, bool is_error);
    void do_pragma(Frame& f, const PP_Token& hash, Mode mode);
    void expand_line(const std::vector<PP_Token>& in, std::vector<PP_Token>& out);
    // Reports, and stops the run, when the output has outgrown its limit.
    bool output_too_large(std::uint32_t line, std::uint32_t col);
    // Reports a resource limit that was reached and stops the run; the
    // diagnostic's last two arguments are the limit and its option.
    void limit_reached(IDL_Diag id, std::uint32_t line, std::uint32_t col, std::string subject, std::size_t limit,
                       std::size_t IDL_Limits::*member);
    static std::string join(const std::vector<PP_Token>& tokens, std::size_t from);

    IDL_FrontendOptions m_options;
    PP_FileCache m_files;
    // The entries already listed in PP_Result::files.
    std::unordered_set<const PP_FileEntry*> m_listed;
    PP_SpellingArena m_arena;
    PP_MacroTable m_macros;
    PP_MacroExpander::Budget m_budget;  // shared by both expanders
    PP_MacroExpander m_expander;       // the text
    PP_MacroExpander m_line_expander;  // directive lines
    PP_ExprEvaluator m_evaluator;
    std::vector<std::unique_ptr<Frame>> m_frames;
    std::unique_ptr<PP_OutputWriter> m_out;
    PP_Result* m_result = nullptr;
    std::string m_main_name;
    std::size_t m_errors = 0;
    std::size_t m_inclusions = 0;
    bool m_stopped = false;
    // A token read while looking for the '(' of a macro call.
    bool m_have_pushback = false;
    PP_Token m_pushback;
    // The tokens of the directive being handled.
    std::vector<PP_Token> m_line;
};

#endif
