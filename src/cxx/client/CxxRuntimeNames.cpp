#include "CxxRuntimeNames.h"

#include "AST_Decl.h"
#include "AST_Root.h"
#include "NameResolver.h"
#include "UTL_Scope.h"

#include <algorithm>
#include <sstream>

namespace {

struct ProvidedName {
    const char* scoped;
    const char* header;
};

const ProvidedName provided_names[] = {
    {"PortableServer::POA", "<omg/PortableServer.hh>"},
    {"PortableServer::POAManager", "<omg/PortableServer.hh>"},
    {"PortableServer::ObjectId", "<omg/PortableServer.hh>"},
    {"Messaging::ReplyHandler", "<omg/Messaging.hh>"},
    {"Messaging::ExceptionHolder", "<omg/Messaging.hh>"},
};

std::string scoped_name(AST_Decl* d, NameResolver& resolver)
{
    std::ostringstream os;
    resolver.output_fully_scoped_name(os, d);
    return os.str();
}

void collect(UTL_Scope* s, NameResolver& resolver, std::vector<const ProvidedName*>& found)
{
    for (const auto& d : s->decls()) {
        if (!d->in_main_file())
            continue;
        if (d->node_type() == AST_Decl::NT_module) {
            collect(DeclAsScope(d.get()), resolver, found);
            continue;
        }
        const std::string name = scoped_name(d.get(), resolver);
        for (const ProvidedName& p : provided_names)
            if (name == p.scoped && std::find(found.begin(), found.end(), &p) == found.end())
                found.push_back(&p);
    }
}

} // namespace

const char* CxxRuntimeNames::header_of(const std::string& scoped)
{
    for (const ProvidedName& p : provided_names)
        if (scoped == p.scoped)
            return p.header;
    return nullptr;
}

bool CxxRuntimeNames::provided(AST_Decl* d, NameResolver& resolver)
{
    return d && header_of(scoped_name(d, resolver)) != nullptr;
}

std::vector<std::string> CxxRuntimeNames::headers_for(AST_Root* root, NameResolver& resolver)
{
    std::vector<const ProvidedName*> found;
    if (root)
        collect(root, resolver, found);
    std::sort(found.begin(), found.end()); // the list's order
    std::vector<std::string> headers;
    for (const ProvidedName* p : found)
        if (std::find(headers.begin(), headers.end(), p->header) == headers.end())
            headers.push_back(p->header);
    return headers;
}
