#include "VE_POA_Impl_CBE_Specific.h"

#include "AST_CBE_Specific.h"
#include "GEN_POACxx.h"

#include <cstring>
#include <sstream>
#include <string>

// The block's text is searched as it stands: an "@switch" inside a comment
// of the block counts here, and the words of one line are read up to its
// line feed only.
long VE_POA_Impl_CBE_Specific::visit(AST_Decl* d)
{
    AST_CBE_Specific* block = AST_CBE_Specific::narrow_from_decl(d);
    if (!block)
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (std::strcmp(block->cbe_ident(), "POACxx") != 0)
        return 1;
    const std::string& text = block->cbe_specific_string()->str();
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    if (!gen)
        return 1;

    static const std::string directive = "@switch";
    for (std::size_t at = text.find(directive); at != std::string::npos; ) {
        const std::size_t begin = at + directive.size();
        std::size_t end = text.find('\n', begin);
        if (end == std::string::npos)
            end = text.size();
        std::istringstream words(text.substr(begin, end - begin));
        for (std::string word; words >> word; ) {
            if (word[0] == '-')
                gen->set_options(word.c_str());
            else if (word[0] == '+')
                gen->clear_options(word.c_str());
        }
        at = text.find(directive, end);
    }
    return 1;
}
