// The declarations that the runtime defines itself although IDL files
// declare them too (every name of its CORBA namespace, the object adapter
// and its object ids, the reply-handler base and the exception holder of
// the callback model). A client header does not define them again: it
// includes the runtime's header for them instead. The list is the one in
// docs/runtime-names.md ("Names the runtime defines").
#ifndef CXXRUNTIMENAMES_H
#define CXXRUNTIMENAMES_H

#include <string>
#include <vector>

class AST_Decl;
class AST_Root;
class NameResolver;

class CxxRuntimeNames {
public:
    // The runtime header that defines the declaration of IDL scoped name
    // `scoped` ("Messaging::ReplyHandler"), or null when the runtime does
    // not define it.
    static const char* header_of(const std::string& scoped);
    // True when `d` is defined by the runtime.
    static bool provided(AST_Decl* d, NameResolver& resolver);
    // The runtime headers of every such declaration (definition or forward
    // declaration) of the main IDL file, each once, in the list's order.
    static std::vector<std::string> headers_for(AST_Root* root, NameResolver& resolver);
};

#endif
