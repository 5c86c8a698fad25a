// Macro expansion over a token source. Expansions under way form a stack of
// contexts; a macro is disabled while its context is on the stack, and its
// name met there is marked NoExpand for good (the "painted blue" rule), so
// recursive macros end. Arguments are collected unexpanded, expanded on
// their own where the replacement list uses them outside # and ##, then the
// replacement is rescanned together with the tokens that follow it.
#ifndef PP_MACROEXPANDER_H
#define PP_MACROEXPANDER_H

#include "IDL_Diagnostics.h"
#include "IDL_Limits.h"
#include "PP_Token.h"

#include <cstddef>
#include <string>
#include <vector>

class PP_MacroTable;
class PP_Reporter;
class PP_SpellingArena;
class PP_TokenSource;
struct PP_Macro;

class PP_MacroExpander {
public:
    // The tokens that all expansions of one input have made, shared by the
    // expanders of one preprocessor. Once it is spent, macros are no longer
    // expanded: every macro name stands for itself.
    struct Budget {
        std::size_t used = 0;
        bool spent = false;
    };

    // Bounds come from `limits`: tokens that one expansion (with everything
    // it expands in turn) may produce (macro_expansion), all expansions
    // together (macro_tokens, counted in `budget`), how deep macro calls
    // may nest in arguments (macro_arg_depth). A token made by # or ##
    // counts its length in bytes, so that long pasted or stringized
    // spellings cannot grow unseen.
    PP_MacroExpander(PP_MacroTable& macros, PP_SpellingArena& arena, PP_Reporter& reporter, const IDL_Limits& limits,
                     Budget& budget);
    ~PP_MacroExpander();
    PP_MacroExpander(const PP_MacroExpander&) = delete;
    PP_MacroExpander& operator=(const PP_MacroExpander&) = delete;

    // The next token after macro expansion; kind End when `src` is exhausted
    // and no expansion is pending. `src` is read only as far as needed.
    void next(PP_TokenSource& src, PP_Token& tok);
    // While off, tokens pass unexpanded (the operand of `defined`).
    void set_expanding(bool on) { m_expanding = on; }
    // Drops the expansions under way.
    void reset();

private:
    struct Context {
        PP_Macro* macro;
        std::vector<PP_Token> tokens;
        std::size_t pos;
    };
    using Args = std::vector<std::vector<PP_Token>>;

    // Expands the macro named by `name`; false (with `name` possibly marked
    // NoExpand) when the name stands for itself.
    bool expand(PP_TokenSource& src, PP_Macro& macro, PP_Token& name);
    bool lparen_follows(PP_TokenSource& src);
    void read_in_args(PP_TokenSource& src, PP_Token& tok);
    bool collect_args(PP_TokenSource& src, const PP_Macro& macro, const PP_Token& name, Args& args);
    void expand_arg(const std::vector<PP_Token>& arg, std::vector<PP_Token>& out);
    // False when the expansion outgrew its bounds (reported).
    bool substitute(const PP_Macro& macro, const Args& args, const PP_Token& name, std::vector<PP_Token>& out);
    bool paste_all(std::vector<PP_Token>& tokens, const PP_Macro& macro, const PP_Token& name);
    bool paste(PP_Token& lhs, const PP_Token& rhs);
    PP_Token stringize(const std::vector<PP_Token>& arg);
    PP_Token builtin(const PP_Macro& macro, const PP_Token& name);
    bool push(PP_Macro& macro, std::vector<PP_Token> tokens, const PP_Token& name);
    // Counts `units` made by the expansion of `macro` at `name`; false
    // (reported once) when that takes the expansion or the input beyond
    // its bounds.
    bool charge(std::size_t units, const PP_Macro& macro, const PP_Token& name);
    void pop();
    void error_at(const PP_Token& where, IDL_Diag id, std::initializer_list<std::string> args);

    PP_MacroTable& m_macros;
    PP_SpellingArena& m_arena;
    PP_Reporter& m_reporter;
    const IDL_Limits& m_limits;
    Budget& m_budget;
    std::vector<Context> m_stack;
    // Tokens produced since the last token taken from the outermost source.
    std::size_t m_produced = 0;
    bool m_overflow_reported = false;
    std::size_t m_arg_depth = 0;
    // The macro whose use in the source the current expansion stems from:
    // the one messages about its size name.
    const PP_Macro* m_outermost = nullptr;
    bool m_expanding = true;
    // Position of the last token taken from the outermost source: where
    // diagnostics about expansions go.
    std::uint32_t m_where_line = 0;
    std::uint32_t m_where_col = 0;
};

#endif
