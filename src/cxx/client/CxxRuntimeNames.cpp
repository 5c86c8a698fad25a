#include "CxxRuntimeNames.h"

#include "AST_Decl.h"
#include "AST_Root.h"
#include "NameResolver.h"
#include "UTL_Scope.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct ProvidedName {
    const char* scoped;
    const char* header;
};

// The header every client header includes first; names it defines need no
// include line of their own.
const char* const kSystemHeader = "<zantic_sys/yvcxx.h>";

const ProvidedName provided_names[] = {
    // Every name the runtime defines in the CORBA namespace, but the forms
    // the mapping derives from them (_ptr, _var, _out), which IDL cannot
    // declare. An IDL file that declares one of them (a copy of the ORB's
    // own IDL, as other projects ship) gets the runtime's.
    {"CORBA::ARG_IN", kSystemHeader},
    {"CORBA::ARG_INOUT", kSystemHeader},
    {"CORBA::ARG_OUT", kSystemHeader},
    {"CORBA::AbstractBase", kSystemHeader},
    {"CORBA::Any", kSystemHeader},
    {"CORBA::Boolean", kSystemHeader},
    {"CORBA::Char", kSystemHeader},
    {"CORBA::CompletionStatus", kSystemHeader},
    {"CORBA::CustomMarshal", kSystemHeader},
    {"CORBA::DataInputStream", kSystemHeader},
    {"CORBA::DataOutputStream", kSystemHeader},
    {"CORBA::DefaultValueRefCountBase", kSystemHeader},
    {"CORBA::Double", kSystemHeader},
    {"CORBA::Exception", kSystemHeader},
    {"CORBA::Fixed", kSystemHeader},
    {"CORBA::Flags", kSystemHeader},
    {"CORBA::Float", kSystemHeader},
    {"CORBA::IN_COPY_VALUE", kSystemHeader},
    {"CORBA::Identifier", kSystemHeader},
    {"CORBA::InputStream", kSystemHeader},
    {"CORBA::Long", kSystemHeader},
    {"CORBA::LongDouble", kSystemHeader},
    {"CORBA::LongLong", kSystemHeader},
    {"CORBA::MarshalMinor", kSystemHeader},
    {"CORBA::NVList", kSystemHeader},
    {"CORBA::NamedValue", kSystemHeader},
    {"CORBA::ORB", kSystemHeader},
    {"CORBA::OUT_LIST_MEMORY", kSystemHeader},
    {"CORBA::Object", kSystemHeader},
    {"CORBA::Octet", kSystemHeader},
    {"CORBA::OutputStream", kSystemHeader},
    {"CORBA::Policy", kSystemHeader},
    {"CORBA::PolicyList", kSystemHeader},
    {"CORBA::PolicyType", kSystemHeader},
    {"CORBA::Principal", kSystemHeader},
    {"CORBA::RepositoryId", kSystemHeader},
    {"CORBA::Short", kSystemHeader},
    {"CORBA::SystemException", kSystemHeader},
    {"CORBA::TCKind", kSystemHeader},
    {"CORBA::TypeCode", kSystemHeader},
    {"CORBA::TypeCodeFactory", kSystemHeader},
    {"CORBA::ULong", kSystemHeader},
    {"CORBA::ULongLong", kSystemHeader},
    {"CORBA::UShort", kSystemHeader},
    {"CORBA::UserException", kSystemHeader},
    {"CORBA::VM_ABSTRACT", kSystemHeader},
    {"CORBA::VM_CUSTOM", kSystemHeader},
    {"CORBA::VM_NONE", kSystemHeader},
    {"CORBA::VM_TRUNCATABLE", kSystemHeader},
    {"CORBA::ValueBase", kSystemHeader},
    {"CORBA::ValueFactory", kSystemHeader},
    {"CORBA::ValueFactoryBase", kSystemHeader},
    {"CORBA::ValueModifier", kSystemHeader},
    {"CORBA::WChar", kSystemHeader},
#define YV_SYSTEM_EXCEPTION(name) {"CORBA::" #name, kSystemHeader},
#include "../../../runtime/include/zantic_sys/CORBA/SystemExceptions.def"
#undef YV_SYSTEM_EXCEPTION
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

// The outermost scopes of the table's names ("CORBA", "PortableServer"...).
const std::vector<std::string>& provided_scopes()
{
    static const std::vector<std::string> scopes = [] {
        std::vector<std::string> found;
        for (const ProvidedName& p : provided_names) {
            const std::string outer(p.scoped, std::strstr(p.scoped, "::") - p.scoped);
            if (std::find(found.begin(), found.end(), outer) == found.end())
                found.push_back(outer);
        }
        return found;
    }();
    return scopes;
}

// False for a declaration whose scoped name cannot be in the table: one at
// file scope, or under another outermost scope. Asked for nearly every
// declaration, it spares making their scoped names.
bool may_be_provided(AST_Decl* d, NameResolver& resolver)
{
    AST_Decl* outer = d;
    for (AST_Decl* s = ScopeAsDecl(d->defined_in()); s && s->node_type() != AST_Decl::NT_root;
         s = ScopeAsDecl(s->defined_in()))
        outer = s;
    if (outer == d)
        return false;
    const std::string& name = resolver.local_name(outer);
    const std::vector<std::string>& scopes = provided_scopes();
    return std::find(scopes.begin(), scopes.end(), name) != scopes.end();
}

// `top`: `s` is the file scope, whose own declarations are never in the
// table and whose modules hold its names only under its outermost scopes.
void collect(UTL_Scope* s, NameResolver& resolver, std::vector<const ProvidedName*>& found, bool top)
{
    const std::vector<std::string>& scopes = provided_scopes();
    for (const auto& d : s->decls()) {
        if (!d->in_main_file())
            continue;
        if (d->node_type() == AST_Decl::NT_module) {
            if (!top || std::find(scopes.begin(), scopes.end(), resolver.local_name(d.get())) != scopes.end())
                collect(DeclAsScope(d.get()), resolver, found, false);
            continue;
        }
        if (top)
            continue;
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
    return d && may_be_provided(d, resolver) && header_of(scoped_name(d, resolver)) != nullptr;
}

std::vector<std::string> CxxRuntimeNames::headers_for(AST_Root* root, NameResolver& resolver)
{
    std::vector<const ProvidedName*> found;
    if (root)
        collect(root, resolver, found, true);
    std::sort(found.begin(), found.end()); // the list's order
    std::vector<std::string> headers;
    for (const ProvidedName* p : found)
        if (p->header != kSystemHeader && std::find(headers.begin(), headers.end(), p->header) == headers.end())
            headers.push_back(p->header);
    return headers;
}
