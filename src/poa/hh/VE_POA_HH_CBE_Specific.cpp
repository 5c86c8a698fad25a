#include "VE_POA_HH_CBE_Specific.h"

#include "AST_CBE_Specific.h"
#include "GEN_POACxx.h"

#include <cstring>
#include <sstream>

long VE_POA_HH_CBE_Specific::visit(AST_Decl* d)
{
    AST_CBE_Specific* block = AST_CBE_Specific::narrow_from_decl(d);
    if (!block)
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (std::strcmp(block->cbe_ident(), "POACxx") != 0)
        return 1;

    YV_String text(block->cbe_specific_string()->get_string());
    // Comments go first, so the "#" that an include receives is kept.
    drop_comments(text);
    close_up_directives(text);
    includes_to_preprocessor(text);
    apply_switches(text);
    // The block's text goes out as it stands, unindented.
    if (!text.empty())
        printer().raw("$text$", {{"text", text.str()}});
    return 1;
}

// A "#" removes the rest of its line together with the line end.
void VE_POA_HH_CBE_Specific::drop_comments(YV_String& text)
{
    for (std::size_t hash; (hash = text.find('#')) != YV_String::npos;) {
        std::size_t end = text.find('\n', hash);
        text.erase(hash, end == YV_String::npos ? YV_String::npos : end - hash + 1);
    }
}

// Blanks and tabs after an "@" are removed, so "@ include" is "@include".
void VE_POA_HH_CBE_Specific::close_up_directives(YV_String& text)
{
    for (std::size_t at = text.find('@'); at != YV_String::npos; at = text.find('@', at + 1)) {
        std::size_t word = at + 1;
        std::size_t blanks = 0;
        while (word + blanks < text.length() && (text[word + blanks] == ' ' || text[word + blanks] == '\t'))
            ++blanks;
        text.erase(word, blanks);
    }
}

void VE_POA_HH_CBE_Specific::includes_to_preprocessor(YV_String& text)
{
    for (std::size_t at; (at = text.find("@include")) != YV_String::npos;)
        text.replace(at, 1, "#");
}

// "-" words go to set_options, "+" words to clear_options, others are
// ignored; the directive is erased and its line end kept.
void VE_POA_HH_CBE_Specific::apply_switches(YV_String& text)
{
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    if (!gen)
        return;
    static const char DIRECTIVE[] = "@switch";
    for (std::size_t at; (at = text.find(DIRECTIVE)) != YV_String::npos;) {
        const std::size_t args = at + sizeof(DIRECTIVE) - 1;
        std::size_t end = text.find('\n', args);
        if (end == YV_String::npos)
            end = text.length();
        std::istringstream words(text.substr(args, end - args).str());
        for (YV_String word; words >> word;) {
            if (word[0] == '-')
                gen->set_options(word.c_str());
            else if (word[0] == '+')
                gen->clear_options(word.c_str());
        }
        text.erase(at, end - at);
    }
}
