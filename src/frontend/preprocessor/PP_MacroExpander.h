// Macro expansion over a token source. Expansions under way form a stack of
// contexts; a macro is disabled while its context is on the stack, and its
// name met there is marked NoExpand for good (the "painted blue" rule), so
// recursive macros end. Arguments are collected unexpanded, expanded on
// their own where the replacement list uses them outside # and ##, then the
// replacement is rescanned together with the tokens that follow it.
#ifndef PP_MACROEXPANDER_H
#define PP_MACROEXPANDER_H

#include "IDL_Diagnostics.h"
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
    // Tokens that one expansion (with everything it expands in turn) may
    // produce, and how deep macro calls may nest in arguments.
    static constexpr std::size_t kMaxTokens = std::size_t(1) << 20;
    static constexpr int kMaxArgNesting = 200;

    PP_MacroExpander(PP_MacroTable& macros, PP_SpellingArena& arena, PP_Reporter& reporter);
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
    void substitute(const PP_Macro& macro, const Args& args, std::vector<PP_Token>& out);
    void paste_all(std::vector<PP_Token>& tokens);
    bool paste(PP_Token& lhs, const PP_Token& rhs);
    PP_Token stringize(const std::vector<PP_Token>& arg);
    PP_Token builtin(const PP_Macro& macro, const PP_Token& name);
    bool push(PP_Macro& macro, std::vector<PP_Token> tokens, const PP_Token& name);
    void pop();
    void error_at(const PP_Token& where, IDL_Diag id, std::initializer_list<std::string> args);

    PP_MacroTable& m_macros;
    PP_SpellingArena& m_arena;
    PP_Reporter& m_reporter;
    std::vector<Context> m_stack;
    // Tokens produced since the last token taken from the outermost source.
    std::size_t m_produced = 0;
    bool m_overflow_reported = false;
    int m_arg_depth = 0;
    bool m_expanding = true;
    // Position of the last token taken from the outermost source: where
    // diagnostics about expansions go.
    std::uint32_t m_where_line = 0;
    std::uint32_t m_where_col = 0;
};

#endif
