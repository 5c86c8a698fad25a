#include "IDL_Preprocessor.h"

#include "PP_VectorSource.h"

#include <algorithm>
#include <cstdio>

namespace {

// Macros every run starts with (besides __FILE__ and __LINE__).
const char* const kPredefined = "#define __IDL__ 1\n"
                                "#define __YVIDL__ 1\n";

std::string dir_of(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return std::string();
    return slash == 0 ? std::string("/") : path.substr(0, slash);
}

std::string join_path(const std::string& dir, const std::string& name)
{
    if (dir.empty())
        return name;
    return dir.back() == '/' ? dir + name : dir + "/" + name;
}

bool is_name_char(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool is_blank(char c) { return c == ' ' || c == '\t'; }

// Diagnostics about a token made by an expansion go to the directive.
const PP_Token& placed(const PP_Token& tok, const PP_Token& fallback) { return tok.line ? tok : fallback; }

bool is_quoted_string(const PP_Token& tok)
{
    return tok.kind == PP_Token::String && tok.text[0] == '"' && !tok.has(PP_Token::Unterminated);
}

} // namespace

IDL_Preprocessor::IDL_Preprocessor(const IDL_FrontendOptions& options)
    : m_options(options), m_expander(m_macros, m_arena, *this, m_options.limits, m_budget),
      m_line_expander(m_macros, m_arena, *this, m_options.limits, m_budget), m_evaluator(*this, m_options.limits)
{
}

IDL_Preprocessor::~IDL_Preprocessor()
{
    m_expander.reset();
    m_line_expander.reset();
}

// ---- Runs ----

bool IDL_Preprocessor::run_file(const std::string& path, PP_Result& out)
{
    m_files.clear(m_options.limits.preprocessed_size);
    PP_FileEntry* entry = nullptr;
    const PP_FileCache::Status status = m_files.load(path, entry);
    if (status != PP_FileCache::Status::Found) {
        out = PP_Result();
        if (status == PP_FileCache::Status::TooLarge)
            IDL_Diagnostics::error(IDL_Diag::PP_INPUT_TOO_LARGE, path, 1, 1,
                                   {path, std::to_string(m_options.limits.preprocessed_size),
                                    IDL_Limits::option_of(&IDL_Limits::preprocessed_size)});
        else
            IDL_Diagnostics::error(IDL_Diag::FILE_CANNOT_OPEN, path, 1, 1, {path});
        return false;
    }
    const bool ok = run(entry, path, dir_of(path), true, out);
    out.files.insert(out.files.begin(), path);
    return ok;
}

bool IDL_Preprocessor::run_text(const std::string& file_name, const std::string& text, PP_Result& out)
{
    m_files.clear(m_options.limits.preprocessed_size);
    return run(m_files.adopt(text), file_name, std::string(), false, out);
}

bool IDL_Preprocessor::run(PP_FileEntry* main, const std::string& name, const std::string& dir, bool search_dir,
                           PP_Result& out)
{
    out = PP_Result();
    m_result = &out;
    m_out = std::make_unique<PP_OutputWriter>(out.text);
    m_main_name = name;
    m_errors = 0;
    m_inclusions = 0;
    m_stopped = false;
    m_have_pushback = false;
    m_budget = PP_MacroExpander::Budget();
    m_expander.reset();
    m_line_expander.reset();
    m_frames.clear();
    m_listed.clear();
    m_listed.insert(main);
    m_macros.clear();
    m_arena.clear();

    predefine();
    enter(main, name, dir, search_dir, false);
    PP_Token tok;
    std::uint32_t last_line = 1, last_col = 1;
    for (;;) {
        m_expander.next(*this, tok);
        if (tok.kind == PP_Token::End)
            break;
        if (tok.line) {
            last_line = tok.line;
            last_col = tok.col;
        }
        // IDL has no '#' token; one in the text could read as a directive.
        if (tok.kind == PP_Token::Punct && tok.text[0] == '#') {
            error(IDL_Diag::PP_STRAY_HASH, last_line, last_col, {tok.str()});
            continue;
        }
        m_out->token(tok);
        if (output_too_large(last_line, last_col))
            break;
    }
    m_expander.reset();
    m_frames.clear();
    m_out->finish();
    m_out.reset();
    m_result = nullptr;
    return m_errors == 0;
}

void IDL_Preprocessor::predefine()
{
    PP_Macro file;
    file.name = "__FILE__";
    file.builtin = PP_Macro::File;
    m_macros.define(std::move(file));
    PP_Macro line;
    line.name = "__LINE__";
    line.builtin = PP_Macro::Line;
    m_macros.define(std::move(line));
    run_silent("<built-in>", kPredefined);

    // -D and -U as the directives they stand for; a line end in a value
    // would end the directive early.
    auto one_line = [](std::string s) {
        std::replace(s.begin(), s.end(), '\n', ' ');
        return s;
    };
    std::string text;
    for (const auto& d : m_options.defines)
        text += "#define " + one_line(d.first) + " " + one_line(d.second) + "\n";
    for (const std::string& u : m_options.undefines)
        text += "#undef " + one_line(u) + "\n";
    if (!text.empty())
        run_silent("<command line>", std::move(text));
}

void IDL_Preprocessor::run_silent(const std::string& name, std::string text)
{
    enter(m_files.adopt(std::move(text)), name, std::string(), false, true);
    PP_Token tok;
    do
        fetch(tok, Mode::Text);
    while (tok.kind != PP_Token::End);
}

// ---- Files ----

void IDL_Preprocessor::enter(PP_FileEntry* entry, const std::string& name, const std::string& dir,
                             bool search_dir, bool silent)
{
    const bool bad = entry->bad_byte != PP_FileEntry::kNoBadByte;
    PP_Reporter* reporter = this;
    auto frame = std::make_unique<Frame>(entry, bad ? std::string_view("") : entry->body(), m_arena, reporter);
    frame->name = name;
    frame->dir = dir;
    frame->search_dir = search_dir;
    frame->silent = silent;
    m_frames.push_back(std::move(frame));
    if (!silent)
        m_out->marker(1, name, PP_OutputWriter::Enter);
    if (bad && !entry->bad_byte_reported) {
        // Binary data: reported once, and the file is read as empty.
        entry->bad_byte_reported = true;
        const std::string& text = entry->text;
        const std::size_t at = entry->bad_byte;
        const std::size_t line_start = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
        const auto line = static_cast<std::uint32_t>(1 + std::count(text.begin(), text.begin() + at, '\n'));
        const auto col = static_cast<std::uint32_t>(at - line_start + 1);
        const unsigned char byte = static_cast<unsigned char>(text[at]);
        if (byte == 0) {
            error(IDL_Diag::FILE_NOT_TEXT, line, col);
        } else {
            char hex[3];
            std::snprintf(hex, sizeof hex, "%02x", byte);
            error(IDL_Diag::PP_BINARY_DATA, line, col, {hex});
        }
    }
}

bool IDL_Preprocessor::leave()
{
    Frame& f = top();
    for (const Conditional& c : f.conds)
        error(IDL_Diag::PP_UNTERMINATED_IF, c.line, c.col, {c.directive});
    std::string guard = f.guard.result();
    if (!guard.empty())
        f.entry->guard = std::move(guard);
    const bool silent = f.silent;
    m_frames.pop_back();
    if (m_frames.empty())
        return false;
    Frame& parent = top();
    if (!silent)
        m_out->marker(parent.lexer.line(), parent.name, PP_OutputWriter::Return);
    return true;
}

// ---- The token source ----

void IDL_Preprocessor::next(PP_Token& tok) { fetch(tok, Mode::Text); }

void IDL_Preprocessor::next_in_args(PP_Token& tok) { fetch(tok, Mode::Args); }

void IDL_Preprocessor::fetch(PP_Token& tok, Mode mode)
{
    for (;;) {
        if (m_stopped || m_frames.empty()) {
            tok = PP_Token();
            return;
        }
        if (m_have_pushback) {
            tok = m_pushback;
            m_have_pushback = false;
        } else {
            Frame& f = top();
            if (f.lexer.at_line_start() && !f.lexer.at_end()) {
                if (skipping(f)) {
                    skip_group(f);
                    continue;
                }
                if (f.lexer.block_ahead()) {
                    // A macro call's arguments end before a block.
                    if (mode == Mode::Args) {
                        tok = PP_Token();
                        return;
                    }
                    backend_block(f, true);
                    continue;
                }
                if (mode == Mode::Text && f.lexer.block_close_ahead()) {
                    const std::uint32_t line = f.lexer.line();
                    std::string_view text;
                    f.lexer.raw_line(text);
                    error(IDL_Diag::PP_BLOCK_CLOSE_WITHOUT_OPEN, line,
                          static_cast<std::uint32_t>(text.find('%') + 1));
                    continue;
                }
            }
            f.lexer.lex(tok);
        }
        if (tok.kind == PP_Token::Newline)
            continue;
        if (tok.kind == PP_Token::End) {
            // A macro call does not reach into the including file.
            if (mode == Mode::Args)
                return;
            if (!leave()) {
                tok = PP_Token();
                return;
            }
            continue;
        }
        if (tok.has(PP_Token::LineStart) && tok.is('#')) {
            directive(tok, mode);
            continue;
        }
        top().guard.other();
        return;
    }
}

bool IDL_Preprocessor::next_is_lparen()
{
    if (m_stopped || m_frames.empty())
        return false;
    if (m_have_pushback) {
        if (!m_pushback.is('('))
            return false;
        m_have_pushback = false;
        return true;
    }
    Frame& f = top();
    for (;;) {
        // A directive or a block ahead: no call (nothing consumed).
        if (f.lexer.at_line_start() && !f.lexer.at_end() &&
            (skipping(f) || f.lexer.block_ahead() || f.lexer.block_close_ahead()))
            return false;
        PP_Token tok;
        f.lexer.lex(tok);
        if (tok.kind == PP_Token::Newline)
            continue;
        if (tok.is('(')) {
            f.guard.other();
            return true;
        }
        m_pushback = tok;
        m_have_pushback = true;
        return false;
    }
}

// ---- Diagnostics ----

bool IDL_Preprocessor::output_too_large(std::uint32_t line, std::uint32_t col)
{
    const std::size_t limit = m_options.limits.preprocessed_size;
    if (m_stopped || m_result->text.size() <= limit)
        return false;
    limit_reached(IDL_Diag::PP_TOO_LARGE, line, col, std::string(), limit, &IDL_Limits::preprocessed_size);
    return true;
}

void IDL_Preprocessor::limit_reached(IDL_Diag id, std::uint32_t line, std::uint32_t col, std::string subject,
                                     std::size_t limit, std::size_t IDL_Limits::*member)
{
    const std::string value = std::to_string(limit);
    const std::string option = IDL_Limits::option_of(member);
    if (subject.empty())
        error(id, line, col, {value, option});
    else
        error(id, line, col, {std::move(subject), value, option});
    m_stopped = true;
}

void IDL_Preprocessor::error(IDL_Diag id, std::uint32_t line, std::uint32_t col,
                             std::initializer_list<std::string> args)
{
    if (m_stopped)
        return;
    IDL_Diagnostics::error(id, current_file(), line, col, args);
    if (++m_errors >= kMaxErrors) {
        IDL_Diagnostics::error(IDL_Diag::PP_TOO_MANY_ERRORS, current_file(), line, col);
        m_stopped = true;
    }
}

void IDL_Preprocessor::warning(IDL_Diag id, std::uint32_t line, std::uint32_t col,
                               std::initializer_list<std::string> args)
{
    if (!m_stopped)
        IDL_Diagnostics::warning(id, current_file(), line, col, args);
}

const std::string& IDL_Preprocessor::current_file() const
{
    return m_frames.empty() ? m_main_name : m_frames.back()->name;
}

// ---- Inactive groups and back-end blocks ----

void IDL_Preprocessor::skip_group(Frame& f)
{
    // Only the directives that open and close groups matter here; lines
    // are skipped without being tokenized past their first token.
    f.lexer.set_lenient(true);
    while (!m_stopped && skipping(f) && !f.lexer.at_end()) {
        if (f.lexer.at_line_start() && f.lexer.block_ahead()) {
            backend_block(f, false);
            continue;
        }
        PP_Token tok;
        f.lexer.lex(tok);
        if (tok.kind == PP_Token::Newline || tok.kind == PP_Token::End)
            continue;
        if (tok.is('#') && tok.has(PP_Token::LineStart)) {
            directive(tok, Mode::Text);
            f.lexer.set_lenient(true);
            continue;
        }
        f.lexer.skip_line();
    }
    f.lexer.set_lenient(false);
}

void IDL_Preprocessor::backend_block(Frame& f, bool active)
{
    f.guard.other();
    const std::uint32_t open_line = f.lexer.line();
    std::string_view open;
    f.lexer.raw_line(open);
    const std::size_t percent = open.find('%');
    const auto col = static_cast<std::uint32_t>(percent + 1);
    std::size_t i = percent + 2;
    while (i < open.size() && is_blank(open[i]))
        ++i;
    const std::size_t name_start = i;
    while (i < open.size() && is_name_char(open[i]))
        ++i;
    const std::string name(open.substr(name_start, i - name_start));
    while (i < open.size() && is_blank(open[i]))
        ++i;
    bool usable = active;
    if (active && name.empty()) {
        error(IDL_Diag::PP_BLOCK_NO_NAME, open_line, col);
        usable = false;
    } else if (active && i < open.size()) {
        error(IDL_Diag::PP_BLOCK_JUNK, open_line, static_cast<std::uint32_t>(i + 1), {name});
    }

    // The block's lines are taken as they are: no comments, no macros, no
    // directives.
    std::vector<std::string_view> lines;
    std::string_view text;
    std::uint32_t close_line = 0;
    for (;;) {
        close_line = f.lexer.line();
        if (!f.lexer.raw_line(text)) {
            error(IDL_Diag::PP_BLOCK_UNTERMINATED, open_line, col, {name});
            return;
        }
        if (PP_Lexer::is_block_close(text))
            break;
        lines.push_back(text);
    }
    if (!usable || f.silent)
        return;
    m_out->line(open_line, "%{" + name);
    for (std::size_t k = 0; k < lines.size(); ++k)
        m_out->line(open_line + 1 + static_cast<std::uint32_t>(k), lines[k]);
    m_out->line(close_line, "%}");
    output_too_large(open_line, col);
}

// ---- Directives ----

void IDL_Preprocessor::directive(const PP_Token& hash, Mode mode)
{
    Frame& f = top();
    const bool skip = skipping(f);
    PP_Token name;
    f.lexer.set_lenient(skip);
    f.lexer.lex(name);
    f.lexer.set_lenient(false);
    if (name.kind == PP_Token::Newline || name.kind == PP_Token::End) {
        if (!skip)
            f.guard.other();  // the null directive
        return;
    }
    const std::string_view word = name.spelling();
    if (name.kind == PP_Token::Identifier) {
        if (word == "if" || word == "ifdef" || word == "ifndef") {
            do_if(f, hash, std::string(word));
            return;
        }
        if (word == "elif") {
            do_elif(f, hash);
            return;
        }
        if (word == "else") {
            do_else(f, hash);
            return;
        }
        if (word == "endif") {
            do_endif(f, hash);
            return;
        }
    }
    if (skip) {
        f.lexer.skip_line();
        return;
    }
    f.guard.other();

    // Directives that write output or switch files cannot sit inside the
    // arguments of a macro call: the call's tokens are not written yet.
    const bool writes = name.kind == PP_Token::Number || word == "include" || word == "line";
    if (mode == Mode::Args && writes) {
        error(IDL_Diag::PP_DIRECTIVE_IN_ARGS, hash.line, hash.col,
              {name.kind == PP_Token::Number ? std::string("line") : std::string(word)});
        f.lexer.skip_line();
        return;
    }
    if (name.kind == PP_Token::Number) {
        // "# 12 "file"": a line marker as this preprocessor writes them.
        read_line(f, m_line);
        m_line.insert(m_line.begin(), name);
        do_line(f, m_line, hash, true);
        return;
    }
    if (name.kind != PP_Token::Identifier) {
        error(IDL_Diag::PP_INVALID_DIRECTIVE, name.line, name.col, {name.str()});
        f.lexer.skip_line();
        return;
    }
    if (word == "define") {
        do_define(hash);
    } else if (word == "undef") {
        do_undef(hash);
    } else if (word == "include") {
        do_include(f, hash);
    } else if (word == "line") {
        read_line(f, m_line);
        do_line(f, m_line, hash, false);
    } else if (word == "error" || word == "warning") {
        do_diagnostic(f, hash, word == "error");
    } else if (word == "pragma") {
        do_pragma(f, hash, mode);
    } else {
        error(IDL_Diag::PP_UNKNOWN_DIRECTIVE, name.line, name.col, {name.str()});
        f.lexer.skip_line();
    }
}

void IDL_Preprocessor::read_line(Frame& f, std::vector<PP_Token>& tokens)
{
    tokens.clear();
    PP_Token tok;
    for (;;) {
        f.lexer.lex(tok);
        if (tok.kind == PP_Token::Newline || tok.kind == PP_Token::End)
            return;
        tokens.push_back(tok);
    }
}

void IDL_Preprocessor::extra_tokens(const std::vector<PP_Token>& tokens, std::size_t from, const PP_Token& hash,
                                    const char* directive)
{
    if (from < tokens.size()) {
        const PP_Token& at = placed(tokens[from], hash);
        warning(IDL_Diag::PP_EXTRA_TOKENS, at.line, at.col, {directive});
    }
}

std::string IDL_Preprocessor::join(const std::vector<PP_Token>& tokens, std::size_t from)
{
    std::string text;
    for (std::size_t i = from; i < tokens.size(); ++i) {
        if (i > from && tokens[i].has(PP_Token::LeadingSpace))
            text += ' ';
        text.append(tokens[i].text, tokens[i].len);
    }
    return text;
}

bool IDL_Preprocessor::macro_name(const std::vector<PP_Token>& tokens, const PP_Token& hash, const char* directive)
{
    if (tokens.empty()) {
        error(IDL_Diag::PP_MACRO_NAME_MISSING, hash.line, hash.col, {directive});
        return false;
    }
    const PP_Token& name = tokens[0];
    if (name.kind != PP_Token::Identifier || name.is_ident("defined")) {
        error(IDL_Diag::PP_MACRO_NAME_INVALID, name.line, name.col, {name.str()});
        return false;
    }
    return true;
}

void IDL_Preprocessor::do_if(Frame& f, const PP_Token& hash, const std::string& kind)
{
    Conditional c{kind, hash.line, hash.col, !skipping(f), false, true, false};
    std::string guard;
    if (!c.parent_active) {
        f.lexer.skip_line();
    } else {
        read_line(f, m_line);
        bool value = false;
        if (kind == "if") {
            value = eval_condition(m_line, hash, "if");
            // "#if !defined X" and "#if !defined(X)" guard like #ifndef.
            const std::vector<PP_Token>& t = m_line;
            if (t.size() >= 3 && t[0].is('!') && t[1].is_ident("defined")) {
                if (t.size() == 3 && t[2].kind == PP_Token::Identifier)
                    guard = t[2].str();
                else if (t.size() == 5 && t[2].is('(') && t[3].kind == PP_Token::Identifier && t[4].is(')'))
                    guard = t[3].str();
            }
        } else if (macro_name(m_line, hash, kind.c_str())) {
            const bool defined = m_macros.defined(m_line[0].spelling());
            value = kind == "ifdef" ? defined : !defined;
            if (kind == "ifndef")
                guard = m_line[0].str();
            extra_tokens(m_line, 1, hash, kind.c_str());
        }
        c.active = c.taken = value;
    }
    f.guard.open(f.conds.size(), guard);
    f.conds.push_back(std::move(c));
}

void IDL_Preprocessor::do_elif(Frame& f, const PP_Token& hash)
{
    if (f.conds.empty()) {
        error(IDL_Diag::PP_COND_WITHOUT_IF, hash.line, hash.col, {"elif"});
        f.lexer.skip_line();
        return;
    }
    Conditional& c = f.conds.back();
    f.guard.branch(f.conds.size() - 1);
    if (c.else_seen) {
        error(IDL_Diag::PP_COND_AFTER_ELSE, hash.line, hash.col, {"elif"});
        c.active = false;
        f.lexer.skip_line();
        return;
    }
    if (!c.parent_active || c.taken) {
        // Not evaluated: an earlier branch was taken, or none can be.
        c.active = false;
        f.lexer.skip_line();
        return;
    }
    read_line(f, m_line);
    c.active = c.taken = eval_condition(m_line, hash, "elif");
}

void IDL_Preprocessor::do_else(Frame& f, const PP_Token& hash)
{
    if (f.conds.empty()) {
        error(IDL_Diag::PP_COND_WITHOUT_IF, hash.line, hash.col, {"else"});
        f.lexer.skip_line();
        return;
    }
    Conditional& c = f.conds.back();
    f.guard.branch(f.conds.size() - 1);
    if (c.else_seen)
        error(IDL_Diag::PP_COND_AFTER_ELSE, hash.line, hash.col, {"else"});
    c.else_seen = true;
    c.active = c.parent_active && !c.taken;
    c.taken = true;
    if (c.parent_active) {
        read_line(f, m_line);
        extra_tokens(m_line, 0, hash, "else");
    } else {
        f.lexer.skip_line();
    }
}

void IDL_Preprocessor::do_endif(Frame& f, const PP_Token& hash)
{
    if (f.conds.empty()) {
        error(IDL_Diag::PP_COND_WITHOUT_IF, hash.line, hash.col, {"endif"});
        f.lexer.skip_line();
        return;
    }
    const bool parent_active = f.conds.back().parent_active;
    f.conds.pop_back();
    f.guard.close(f.conds.size());
    if (parent_active) {
        read_line(f, m_line);
        extra_tokens(m_line, 0, hash, "endif");
    } else {
        f.lexer.skip_line();
    }
}

bool IDL_Preprocessor::eval_condition(const std::vector<PP_Token>& tokens, const PP_Token& hash,
                                      const char* directive)
{
    if (tokens.empty()) {
        error(IDL_Diag::PP_IF_NO_EXPRESSION, hash.line, hash.col, {directive});
        return false;
    }
    // Expand macros; `defined X` and `defined(X)` are answered on the way,
    // their operand left unexpanded.
    std::vector<PP_Token> expanded;
    PP_VectorSource source(tokens);
    PP_Token tok;
    bool ok = true;
    for (;;) {
        m_line_expander.next(source, tok);
        if (tok.kind == PP_Token::End)
            break;
        if (!tok.is_ident("defined")) {
            expanded.push_back(tok);
            continue;
        }
        m_line_expander.set_expanding(false);
        PP_Token name, close;
        m_line_expander.next(source, name);
        const bool paren = name.is('(');
        if (paren)
            m_line_expander.next(source, name);
        if (paren && name.kind == PP_Token::Identifier)
            m_line_expander.next(source, close);
        m_line_expander.set_expanding(true);
        if (name.kind != PP_Token::Identifier) {
            const PP_Token& at = placed(name, placed(tok, hash));
            if (name.kind == PP_Token::End)
                error(IDL_Diag::PP_EXPR_DEFINED_MISSING, at.line, at.col);
            else
                error(IDL_Diag::PP_EXPR_DEFINED_SYNTAX, at.line, at.col, {name.str()});
            ok = false;
            break;
        }
        if (paren && !close.is(')')) {
            const PP_Token& at = placed(close, placed(name, hash));
            if (close.kind == PP_Token::End)
                error(IDL_Diag::PP_EXPR_ENDS_BEFORE, at.line, at.col, {")"});
            else
                error(IDL_Diag::PP_EXPR_EXPECTED, at.line, at.col, {")", close.str()});
            ok = false;
            break;
        }
        PP_Token value = tok;
        value.kind = PP_Token::Number;
        value.text = m_macros.defined(name.spelling()) ? "1" : "0";
        value.len = 1;
        expanded.push_back(value);
    }
    m_line_expander.reset();
    bool value = false;
    if (ok)
        m_evaluator.evaluate(expanded, hash, value);
    return value;
}

void IDL_Preprocessor::expand_line(const std::vector<PP_Token>& in, std::vector<PP_Token>& out)
{
    out.clear();
    PP_VectorSource source(in);
    PP_Token tok;
    for (;;) {
        m_line_expander.next(source, tok);
        if (tok.kind == PP_Token::End)
            break;
        out.push_back(tok);
    }
    m_line_expander.reset();
}

void IDL_Preprocessor::do_define(const PP_Token& hash)
{
    read_line(top(), m_line);
    if (!macro_name(m_line, hash, "define"))
        return;
    const std::vector<PP_Token>& t = m_line;
    const PP_Token& name = t[0];
    PP_Macro macro;
    macro.name = name.str();
    std::size_t i = 1;
    auto param_index = [&](std::string_view word) -> std::size_t {
        auto it = std::find(macro.params.begin(), macro.params.end(), word);
        return static_cast<std::size_t>(it - macro.params.begin());
    };

    // A '(' right after the name opens the parameter list.
    if (i < t.size() && t[i].is('(') && !t[i].has(PP_Token::LeadingSpace)) {
        macro.function_like = true;
        ++i;
        bool closed = i < t.size() && t[i].is(')');
        if (closed)
            ++i;
        while (!closed) {
            if (i >= t.size()) {
                error(IDL_Diag::PP_MACRO_PARAMS_UNTERMINATED, name.line, name.col, {macro.name});
                return;
            }
            const PP_Token& p = t[i++];
            if (p.is("...")) {
                macro.variadic = true;
                macro.params.push_back("__VA_ARGS__");
            } else if (p.kind != PP_Token::Identifier) {
                error(IDL_Diag::PP_MACRO_PARAM_EXPECTED, p.line, p.col, {macro.name, p.str()});
                return;
            } else if (param_index(p.spelling()) < macro.params.size()) {
                error(IDL_Diag::PP_MACRO_PARAM_DUPLICATE, p.line, p.col, {p.str(), macro.name});
                return;
            } else {
                macro.params.push_back(p.str());
            }
            if (i >= t.size()) {
                error(IDL_Diag::PP_MACRO_PARAMS_UNTERMINATED, name.line, name.col, {macro.name});
                return;
            }
            const PP_Token& sep = t[i++];
            if (sep.is(')'))
                closed = true;
            else if (!sep.is(',') || macro.variadic) {
                error(IDL_Diag::PP_MACRO_PARAM_SEPARATOR, sep.line, sep.col, {macro.name, sep.str()});
                return;
            }
        }
    }

    for (; i < t.size(); ++i) {
        PP_Token tok = t[i];
        if (tok.is("##")) {
            tok.kind = PP_Token::PasteOp;
        } else if (macro.function_like && tok.is('#')) {
            // "# param" becomes one token that stringizes the argument.
            const std::size_t p = i + 1 < t.size() && t[i + 1].kind == PP_Token::Identifier
                                      ? param_index(t[i + 1].spelling())
                                      : macro.params.size();
            if (p == macro.params.size()) {
                error(IDL_Diag::PP_STRINGIZE_NO_PARAM, tok.line, tok.col, {macro.name});
                return;
            }
            tok.kind = PP_Token::Stringify;
            tok.param = static_cast<std::uint16_t>(p);
            ++i;
        } else if (macro.function_like && tok.kind == PP_Token::Identifier) {
            const std::size_t p = param_index(tok.spelling());
            if (p < macro.params.size()) {
                tok.kind = PP_Token::Param;
                tok.param = static_cast<std::uint16_t>(p);
            }
        }
        macro.body.push_back(tok);
    }
    if (!macro.body.empty()) {
        macro.body.front().flags &= static_cast<std::uint8_t>(~(PP_Token::LeadingSpace | PP_Token::LineStart));
        if (macro.body.front().kind == PP_Token::PasteOp || macro.body.back().kind == PP_Token::PasteOp) {
            const PP_Token& at = macro.body.front().kind == PP_Token::PasteOp ? macro.body.front() : macro.body.back();
            error(IDL_Diag::PP_PASTE_AT_EDGE, at.line, at.col, {macro.name});
            return;
        }
    }
    const PP_Macro* old = m_macros.find(macro.name);
    if (old && !old->same_definition(macro))
        warning(IDL_Diag::PP_MACRO_REDEFINED, name.line, name.col, {macro.name});
    m_macros.define(std::move(macro));
}

void IDL_Preprocessor::do_undef(const PP_Token& hash)
{
    read_line(top(), m_line);
    if (!macro_name(m_line, hash, "undef"))
        return;
    m_macros.undefine(m_line[0].spelling());
    extra_tokens(m_line, 1, hash, "undef");
}

void IDL_Preprocessor::do_include(Frame& f, const PP_Token& hash)
{
    std::string name;
    bool angle = false;
    PP_Token header;
    if (f.lexer.lex_header_name(header)) {
        angle = true;
        name.assign(header.text + 1, header.len - 2);
        read_line(f, m_line);
        extra_tokens(m_line, 0, hash, "include");
    } else {
        read_line(f, m_line);
        // Anything but a plain "name" is macro-expanded first.
        std::vector<PP_Token> expanded;
        const std::vector<PP_Token>* t = &m_line;
        if (m_line.empty() || !is_quoted_string(m_line[0])) {
            expand_line(m_line, expanded);
            t = &expanded;
        }
        if (!t->empty() && is_quoted_string((*t)[0])) {
            name.assign((*t)[0].text + 1, (*t)[0].len - 2);
            extra_tokens(*t, 1, hash, "include");
        } else if (!t->empty() && (*t)[0].is('<')) {
            std::size_t k = 1;
            for (; k < t->size() && !(*t)[k].is('>'); ++k) {
                if (k > 1 && (*t)[k].has(PP_Token::LeadingSpace))
                    name += ' ';
                name.append((*t)[k].text, (*t)[k].len);
            }
            if (k == t->size()) {
                error(IDL_Diag::PP_INCLUDE_SYNTAX, hash.line, hash.col);
                return;
            }
            angle = true;
            extra_tokens(*t, k + 1, hash, "include");
        } else {
            error(IDL_Diag::PP_INCLUDE_SYNTAX, hash.line, hash.col);
            return;
        }
    }
    if (name.empty()) {
        error(IDL_Diag::PP_INCLUDE_EMPTY, hash.line, hash.col);
        return;
    }
    if (m_frames.size() != 1 || f.silent) {
        include_file(f, name, angle, hash);
        return;
    }
    std::string written = angle ? "<" + name + ">" : "\"" + name + "\"";
    auto same = [&](const PP_Include& i) { return i.written == written; };
    const bool listed = std::any_of(m_result->includes.begin(), m_result->includes.end(), same);
    std::string path = include_file(f, name, angle, hash);
    if (!listed)
        m_result->includes.push_back(PP_Include{std::move(written), angle ? 1L : 0L, std::move(path)});
}

std::string IDL_Preprocessor::include_file(Frame& f, const std::string& name, bool angle, const PP_Token& where)
{
    const IDL_Limits& limits = m_options.limits;
    if (m_frames.size() >= limits.include_depth) {
        error(IDL_Diag::PP_INCLUDE_TOO_DEEP, where.line, where.col,
              {std::to_string(limits.include_depth), IDL_Limits::option_of(&IDL_Limits::include_depth)});
        return {};
    }
    std::vector<std::string> candidates;
    if (name[0] == '/') {
        candidates.push_back(name);
    } else {
        if (!angle && f.search_dir)
            candidates.push_back(join_path(f.dir, name));
        for (const std::string& dir : m_options.include_dirs)
            candidates.push_back(join_path(dir, name));
    }
    PP_FileEntry* entry = nullptr;
    std::string path;
    for (const std::string& candidate : candidates) {
        const PP_FileCache::Status status = m_files.load(candidate, entry);
        if (status == PP_FileCache::Status::Found) {
            path = candidate;
            break;
        }
        if (status == PP_FileCache::Status::Unreadable) {
            error(IDL_Diag::FILE_CANNOT_OPEN, where.line, where.col, {candidate});
            return path;
        }
        if (status == PP_FileCache::Status::TooLarge) {
            limit_reached(IDL_Diag::PP_INPUT_TOO_LARGE, where.line, where.col, candidate, limits.preprocessed_size,
                          &IDL_Limits::preprocessed_size);
            return path;
        }
    }
    if (path.empty()) {
        error(IDL_Diag::PP_INCLUDE_NOT_FOUND, where.line, where.col, {name});
        return path;
    }
    if (m_listed.insert(entry).second)
        m_result->files.push_back(path);
    // Files known to add nothing are not read again.
    if (entry->once || (!entry->guard.empty() && m_macros.defined(entry->guard)))
        return path;
    // A file may be read again from inside itself: its second reading is
    // usually cut short by a guard, wherever the guard stands. Only a third
    // reading shows that nothing ends the recursion.
    const auto open_readings = std::count_if(m_frames.begin(), m_frames.end(),
                                             [&](const auto& open) { return open->entry == entry; });
    if (open_readings >= 2) {
        error(IDL_Diag::PP_INCLUDE_CYCLE, where.line, where.col, {path});
        return path;
    }
    // Files that include others more than once without a guard multiply:
    // the number of inclusions is bounded, not only their depth.
    if (++m_inclusions > limits.includes) {
        limit_reached(IDL_Diag::PP_TOO_MANY_INCLUDES, where.line, where.col, std::string(), limits.includes,
                      &IDL_Limits::includes);
        return path;
    }
    enter(entry, path, dir_of(path), true, false);
    return path;
}

void IDL_Preprocessor::do_line(Frame& f, const std::vector<PP_Token>& tokens, const PP_Token& hash,
                               bool marker_form)
{
    std::vector<PP_Token> expanded;
    const std::vector<PP_Token>* t = &tokens;
    if (!marker_form) {
        expand_line(tokens, expanded);
        t = &expanded;
    }
    if (t->empty()) {
        error(IDL_Diag::PP_LINE_MISSING, hash.line, hash.col);
        return;
    }
    const PP_Token& number = (*t)[0];
    const PP_Token& at = placed(number, hash);
    const std::string_view digits = number.spelling();
    if (number.kind != PP_Token::Number ||
        digits.find_first_not_of("0123456789") != std::string_view::npos) {
        error(IDL_Diag::PP_LINE_NUMBER, at.line, at.col, {number.str()});
        return;
    }
    constexpr std::uint64_t kMaxLine = 2147483647;
    std::uint64_t value = 0;
    for (char c : digits) {
        value = value * 10 + static_cast<std::uint64_t>(c - '0');
        if (value > kMaxLine) {
            error(IDL_Diag::PP_LINE_RANGE, at.line, at.col, {number.str()});
            return;
        }
    }
    std::string file = f.name;
    std::size_t next = 1;
    if (next < t->size()) {
        const PP_Token& s = (*t)[next++];
        if (!is_quoted_string(s)) {
            const PP_Token& sat = placed(s, hash);
            error(IDL_Diag::PP_LINE_FILE, sat.line, sat.col, {s.str()});
            return;
        }
        file.clear();
        for (std::uint32_t k = 1; k + 1 < s.len; ++k) {
            if (s.text[k] == '\\' && k + 2 < s.len)
                ++k;
            file += s.text[k];
        }
    }
    if (!marker_form)
        extra_tokens(*t, next, hash, "line");
    f.lexer.set_next_line(static_cast<std::uint32_t>(value));
    f.name = std::move(file);
    if (!f.silent)
        m_out->marker(static_cast<std::uint32_t>(value), f.name, PP_OutputWriter::NoFlag);
}

void IDL_Preprocessor::do_diagnostic(Frame& f, const PP_Token& hash, bool is_error)
{
    // The message is text, not code: an apostrophe in it is no literal.
    f.lexer.set_lenient(true);
    read_line(f, m_line);
    f.lexer.set_lenient(false);
    const std::string text = join(m_line, 0);
    if (is_error)
        error(IDL_Diag::PP_ERROR_DIRECTIVE, hash.line, hash.col, {text});
    else
        warning(IDL_Diag::PP_WARNING_DIRECTIVE, hash.line, hash.col, {text});
}

void IDL_Preprocessor::do_pragma(Frame& f, const PP_Token& hash, Mode mode)
{
    read_line(f, m_line);
    if (m_line.empty())
        return;
    const PP_Token& kind = m_line[0];
    if (kind.is_ident("once")) {
        f.entry->once = true;
        return;
    }
    // The parser's pragmas pass through as written; all others are dropped.
    if (!kind.is_ident("prefix") && !kind.is_ident("ID") && !kind.is_ident("version"))
        return;
    if (mode == Mode::Args) {
        error(IDL_Diag::PP_DIRECTIVE_IN_ARGS, hash.line, hash.col, {"pragma"});
        return;
    }
    if (!f.silent)
        m_out->line(hash.line, "#pragma " + join(m_line, 0));
}
