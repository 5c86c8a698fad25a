#include "POA_SkeletonNames.h"

#include "AST_Decl.h"
#include "NameResolver.h"
#include "POA_OutputVisitor.h"
#include "YV_ScratchStream.h"

std::string POA_SkeletonNames::scoped(AST_Decl* d) const
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    POA_OutputVisitor names(text, m_resolver);
    m_resolver.output_fully_scoped_name_with_visitor(text, d, &names, "::");
    return text_buf.str();
}

std::string POA_SkeletonNames::own(AST_Decl* d) const
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    POA_OutputVisitor names(text, m_resolver);
    d->accept(&names);
    return text_buf.str();
}

std::string POA_SkeletonNames::seen_from(AST_Decl* d, UTL_Scope* from) const
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    POA_OutputVisitor names(text, m_resolver);
    m_resolver.output_name_in_scope_with_visitor(text, d, from, &names, "::");
    return text_buf.str();
}

std::string POA_SkeletonNames::client(AST_Decl* d) const
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    m_resolver.output_fully_scoped_name(text, d);
    return text_buf.str();
}

std::string POA_SkeletonNames::client_scope(AST_Decl* d) const
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    m_resolver.output_full_scope(text, d);
    return text_buf.str();
}

std::string POA_SkeletonNames::local(AST_Decl* d) const
{
    return m_resolver.local_name(d);
}
