#include "POA_SkeletonNames.h"

#include "AST_Decl.h"
#include "NameResolver.h"
#include "POA_OutputVisitor.h"
#include "UTL_Scope.h"
#include "YV_ScratchStream.h"

// Only the outermost component can differ from the client-side name (it
// takes the skeleton prefix); the rest is the client-side name, which the
// resolver keeps.
std::string POA_SkeletonNames::scoped(AST_Decl* d) const
{
    AST_Decl* outer = d;
    for (AST_Decl* s = ScopeAsDecl(d->defined_in()); s && s->node_type() != AST_Decl::NT_root;
         s = ScopeAsDecl(s->defined_in()))
        outer = s;
    const std::string& client_name = m_resolver.scoped_name(d);
    return POA_OutputVisitor::skeleton_name(m_resolver, outer) + client_name.substr(m_resolver.local_name(outer).size());
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
