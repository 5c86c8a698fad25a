#include "VE_HH_MainStartPoint_Root.h"

#include "AST_Root.h"

long VE_HH_MainStartPoint_Root::visit(AST_Decl* d)
{
    AST_Root* root = AST_Root::narrow_from_decl(d);
    if (!root)
        throw Visitor_i::NarrowFailure(visitor(), d);
    for (const auto& member : root->decls())
        if (member->in_main_file())
            member->accept(visitor());
    return 1;
}
