#include "PP_MacroExpander.h"

#include "PP_Lexer.h"
#include "PP_MacroTable.h"
#include "PP_Reporter.h"
#include "PP_SpellingArena.h"
#include "PP_TokenSource.h"
#include "PP_VectorSource.h"

#include <algorithm>
#include <utility>

PP_MacroExpander::PP_MacroExpander(PP_MacroTable& macros, PP_SpellingArena& arena, PP_Reporter& reporter,
                                   const IDL_Limits& limits, Budget& budget)
    : m_macros(macros), m_arena(arena), m_reporter(reporter), m_limits(limits), m_budget(budget)
{
}

PP_MacroExpander::~PP_MacroExpander() { reset(); }

void PP_MacroExpander::reset()
{
    while (!m_stack.empty())
        pop();
}

void PP_MacroExpander::pop()
{
    m_stack.back().macro->disabled = false;
    m_stack.pop_back();
}

void PP_MacroExpander::error_at(const PP_Token& where, IDL_Diag id, std::initializer_list<std::string> args)
{
    if (where.line)
        m_reporter.error(id, where.line, where.col, args);
    else
        m_reporter.error(id, m_where_line, m_where_col, args);
}

void PP_MacroExpander::next(PP_TokenSource& src, PP_Token& tok)
{
    for (;;) {
        if (!m_stack.empty()) {
            Context& c = m_stack.back();
            if (c.pos == c.tokens.size()) {
                pop();
                continue;
            }
            tok = c.tokens[c.pos++];
        } else {
            src.next(tok);
            if (tok.kind == PP_Token::End)
                return;
            if (m_arg_depth == 0) {
                m_produced = 0;
                m_overflow_reported = false;
                m_where_line = tok.line;
                m_where_col = tok.col;
            }
        }
        if (tok.kind != PP_Token::Identifier || !m_expanding || tok.has(PP_Token::NoExpand) || m_budget.spent)
            return;
        PP_Macro* macro = m_macros.find(tok.spelling());
        if (!macro)
            return;
        if (macro->disabled) {
            tok.flags |= PP_Token::NoExpand;
            return;
        }
        if (m_stack.empty() && m_arg_depth == 0)
            m_outermost = macro;
        if (!expand(src, *macro, tok))
            return;
    }
}

bool PP_MacroExpander::lparen_follows(PP_TokenSource& src)
{
    while (!m_stack.empty()) {
        Context& c = m_stack.back();
        if (c.pos < c.tokens.size()) {
            if (!c.tokens[c.pos].is('('))
                return false;
            ++c.pos;
            return true;
        }
        // Exhausted: the '(' may follow the expansion.
        pop();
    }
    return src.next_is_lparen();
}

void PP_MacroExpander::read_in_args(PP_TokenSource& src, PP_Token& tok)
{
    while (!m_stack.empty()) {
        Context& c = m_stack.back();
        if (c.pos < c.tokens.size()) {
            tok = c.tokens[c.pos++];
            if (tok.kind == PP_Token::Identifier && !tok.has(PP_Token::NoExpand)) {
                const PP_Macro* macro = m_macros.find(tok.spelling());
                if (macro && macro->disabled)
                    tok.flags |= PP_Token::NoExpand;
            }
            return;
        }
        pop();
    }
    src.next_in_args(tok);
}

bool PP_MacroExpander::collect_args(PP_TokenSource& src, const PP_Macro& macro, const PP_Token& name, Args& args)
{
    args.assign(1, {});
    const std::size_t nparams = macro.params.size();
    int depth = 0;
    PP_Token tok;
    for (;;) {
        read_in_args(src, tok);
        if (tok.kind == PP_Token::End) {
            error_at(name, IDL_Diag::PP_MACRO_CALL_UNTERMINATED, {macro.name});
            return false;
        }
        if (tok.is('(')) {
            ++depth;
        } else if (tok.is(')')) {
            if (depth == 0)
                break;
            --depth;
        } else if (tok.is(',') && depth == 0 && !(macro.variadic && args.size() == nparams)) {
            args.emplace_back();
            continue;
        }
        args.back().push_back(tok);
    }
    std::size_t given = args.size();
    if (given == 1 && args[0].empty() && nparams == 0)
        given = 0;
    if (macro.variadic && given + 1 == nparams) {
        args.emplace_back();
        given = nparams;
    }
    if (given != nparams) {
        error_at(name, IDL_Diag::PP_MACRO_ARG_COUNT,
                 {macro.name, std::to_string(macro.variadic ? nparams - 1 : nparams), std::to_string(given)});
        return false;
    }
    args.resize(nparams);
    return true;
}

void PP_MacroExpander::expand_arg(const std::vector<PP_Token>& arg, std::vector<PP_Token>& out)
{
    if (m_arg_depth >= m_limits.macro_arg_depth) {
        if (!m_overflow_reported) {
            m_reporter.error(IDL_Diag::PP_MACRO_NESTING, m_where_line, m_where_col,
                             {std::to_string(m_limits.macro_arg_depth),
                              IDL_Limits::option_of(&IDL_Limits::macro_arg_depth)});
            m_overflow_reported = true;
        }
        out = arg;
        return;
    }
    // The argument is expanded on its own: a function-like macro name at its
    // end sees no '(' beyond it.
    std::vector<Context> outer;
    outer.swap(m_stack);
    ++m_arg_depth;
    PP_VectorSource source(arg);
    PP_Token tok;
    for (;;) {
        next(source, tok);
        if (tok.kind == PP_Token::End)
            break;
        out.push_back(tok);
    }
    --m_arg_depth;
    reset();
    m_stack.swap(outer);
}

PP_Token PP_MacroExpander::stringize(const std::vector<PP_Token>& arg)
{
    std::string text = "\"";
    for (std::size_t i = 0; i < arg.size(); ++i) {
        const PP_Token& t = arg[i];
        if (i > 0 && t.has(PP_Token::LeadingSpace))
            text += ' ';
        if (t.kind == PP_Token::String || t.kind == PP_Token::CharLit) {
            for (char c : t.spelling()) {
                if (c == '"' || c == '\\')
                    text += '\\';
                text += c;
            }
        } else {
            text.append(t.text, t.len);
        }
    }
    text += '"';
    std::string_view kept = m_arena.keep(std::move(text));
    PP_Token tok;
    tok.kind = PP_Token::String;
    tok.text = kept.data();
    tok.len = static_cast<std::uint32_t>(kept.size());
    return tok;
}

bool PP_MacroExpander::substitute(const PP_Macro& macro, const Args& args, const PP_Token& name,
                                  std::vector<PP_Token>& out)
{
    Args expanded(args.size());
    std::vector<bool> done(args.size(), false);
    const std::vector<PP_Token>& body = macro.body;
    bool pastes = false;
    for (std::size_t i = 0; i < body.size(); ++i) {
        const PP_Token& t = body[i];
        if (t.kind == PP_Token::Stringify) {
            std::size_t bytes = 0;
            for (const PP_Token& a : args[t.param])
                bytes += a.len + 1;
            if (!charge(bytes, macro, name))
                return false;
            PP_Token s = stringize(args[t.param]);
            s.flags = t.flags & PP_Token::LeadingSpace;
            out.push_back(s);
        } else if (t.kind == PP_Token::Param) {
            // Operands of ## take the argument as written.
            const bool raw = (i > 0 && body[i - 1].kind == PP_Token::PasteOp) ||
                             (i + 1 < body.size() && body[i + 1].kind == PP_Token::PasteOp);
            const std::vector<PP_Token>* arg = &args[t.param];
            if (!raw) {
                if (!done[t.param]) {
                    expand_arg(args[t.param], expanded[t.param]);
                    done[t.param] = true;
                }
                arg = &expanded[t.param];
            }
            if (arg->empty()) {
                if (raw) {
                    PP_Token mark;
                    mark.kind = PP_Token::Placemarker;
                    mark.flags = t.flags & PP_Token::LeadingSpace;
                    out.push_back(mark);
                }
                continue;
            }
            // A parameter used many times multiplies its argument: the
            // replacement is bounded as it grows, not only when done.
            if (m_produced + out.size() + arg->size() > m_limits.macro_expansion) {
                charge(out.size() + arg->size(), macro, name);
                return false;
            }
            const std::size_t first = out.size();
            out.insert(out.end(), arg->begin(), arg->end());
            out[first].flags = static_cast<std::uint8_t>((out[first].flags & ~PP_Token::LeadingSpace) |
                                                         (t.flags & PP_Token::LeadingSpace));
        } else {
            pastes = pastes || t.kind == PP_Token::PasteOp;
            out.push_back(t);
        }
    }
    return !pastes || paste_all(out, macro, name);
}

bool PP_MacroExpander::paste_all(std::vector<PP_Token>& tokens, const PP_Macro& macro, const PP_Token& name)
{
    std::vector<PP_Token> result;
    result.reserve(tokens.size());
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].kind == PP_Token::PasteOp && !result.empty() && i + 1 < tokens.size()) {
            const PP_Token& rhs = tokens[++i];
            PP_Token& lhs = result.back();
            // A chain of pastes makes ever longer spellings.
            if (!charge(lhs.len + rhs.len, macro, name)) {
                tokens.clear();
                return false;
            }
            if (lhs.kind == PP_Token::Placemarker) {
                const std::uint8_t space = lhs.flags & PP_Token::LeadingSpace;
                lhs = rhs;
                lhs.flags = static_cast<std::uint8_t>((lhs.flags & ~PP_Token::LeadingSpace) | space);
            } else if (rhs.kind != PP_Token::Placemarker && !paste(lhs, rhs)) {
                result.push_back(rhs);
            }
        } else {
            result.push_back(tokens[i]);
        }
    }
    tokens.clear();
    for (PP_Token& t : result) {
        if (t.kind == PP_Token::PasteOp)
            t.kind = PP_Token::Punct;
        if (t.kind != PP_Token::Placemarker)
            tokens.push_back(t);
    }
    return true;
}

bool PP_MacroExpander::paste(PP_Token& lhs, const PP_Token& rhs)
{
    std::string text;
    text.reserve(lhs.len + rhs.len);
    text.append(lhs.text, lhs.len).append(rhs.text, rhs.len);
    std::string_view kept = m_arena.keep(std::move(text));
    PP_Lexer lexer(kept, m_arena, nullptr);
    lexer.set_quiet(true);
    lexer.set_lenient(true);
    PP_Token tok;
    lexer.lex(tok);
    const bool valid = tok.kind != PP_Token::End && tok.kind != PP_Token::Newline &&
                       !tok.has(PP_Token::Unterminated) && tok.col == 1 && lexer.at_end();
    if (!valid) {
        error_at(lhs, IDL_Diag::PP_PASTE_INVALID, {lhs.str(), rhs.str()});
        return false;
    }
    tok.line = lhs.line;
    tok.col = lhs.col;
    tok.flags = lhs.flags & PP_Token::LeadingSpace;
    lhs = tok;
    return true;
}

PP_Token PP_MacroExpander::builtin(const PP_Macro& macro, const PP_Token& name)
{
    PP_Token tok;
    std::string text;
    if (macro.builtin == PP_Macro::Line) {
        tok.kind = PP_Token::Number;
        text = std::to_string(name.line ? name.line : m_where_line);
    } else {
        tok.kind = PP_Token::String;
        text = "\"";
        for (char c : m_reporter.current_file()) {
            if (c == '"' || c == '\\')
                text += '\\';
            text += c;
        }
        text += '"';
    }
    std::string_view kept = m_arena.keep(std::move(text));
    tok.text = kept.data();
    tok.len = static_cast<std::uint32_t>(kept.size());
    return tok;
}

bool PP_MacroExpander::charge(std::size_t units, const PP_Macro& macro, const PP_Token& name)
{
    m_produced += units;
    m_budget.used += units;
    if (m_budget.used > m_limits.macro_tokens) {
        if (!m_budget.spent)
            error_at(name, IDL_Diag::PP_MACRO_BUDGET,
                     {std::to_string(m_limits.macro_tokens), IDL_Limits::option_of(&IDL_Limits::macro_tokens)});
        m_budget.spent = true;
        return false;
    }
    if (m_produced > m_limits.macro_expansion) {
        if (!m_overflow_reported)
            error_at(name, IDL_Diag::PP_MACRO_TOO_LARGE,
                     {m_outermost ? m_outermost->name : macro.name, std::to_string(m_limits.macro_expansion),
                      IDL_Limits::option_of(&IDL_Limits::macro_expansion)});
        m_overflow_reported = true;
        return false;
    }
    return true;
}

bool PP_MacroExpander::push(PP_Macro& macro, std::vector<PP_Token> tokens, const PP_Token& name)
{
    if (!charge(tokens.size(), macro, name)) {
        reset();
        return false;
    }
    for (PP_Token& t : tokens) {
        t.line = 0;
        t.col = 0;
        t.flags &= static_cast<std::uint8_t>(~PP_Token::LineStart);
    }
    if (!tokens.empty()) {
        // The expansion takes the place of the macro's name.
        PP_Token& first = tokens.front();
        first.line = name.line;
        first.col = name.col;
        first.flags = static_cast<std::uint8_t>((first.flags & ~PP_Token::LeadingSpace) |
                                                (name.flags & PP_Token::LeadingSpace));
    }
    macro.disabled = true;
    m_stack.push_back(Context{&macro, std::move(tokens), 0});
    return true;
}

bool PP_MacroExpander::expand(PP_TokenSource& src, PP_Macro& macro, PP_Token& name)
{
    if (macro.builtin != PP_Macro::None)
        return push(macro, {builtin(macro, name)}, name);
    if (!macro.function_like) {
        std::vector<PP_Token> tokens = macro.body;
        const auto is_paste = [](const PP_Token& t) { return t.kind == PP_Token::PasteOp; };
        if (std::any_of(tokens.begin(), tokens.end(), is_paste) && !paste_all(tokens, macro, name)) {
            reset();
            name.flags |= PP_Token::NoExpand;
            return false;
        }
        return push(macro, std::move(tokens), name);
    }
    if (!lparen_follows(src))
        return false;
    Args args;
    if (!collect_args(src, macro, name, args)) {
        name.flags |= PP_Token::NoExpand;
        return false;
    }
    std::vector<PP_Token> tokens;
    if (!substitute(macro, args, name, tokens)) {
        reset();
        name.flags |= PP_Token::NoExpand;
        return false;
    }
    if (!push(macro, std::move(tokens), name)) {
        name.flags |= PP_Token::NoExpand;
        return false;
    }
    return true;
}
