// Copies type codes into a graph: for get_compact_typecode (every type code
// with names, the names left out) and for the create_*_tc operations that
// end a recursive type (the type codes that lead to a placeholder of
// create_recursive_tc, the placeholder replaced by the new type code).
// Sharing and cycles are kept: each type code is copied once.
#ifndef YV_RT_YV_TC_TYPECODECOPIER_H
#define YV_RT_YV_TC_TYPECODECOPIER_H

#include "TypeCodeGraph.h"

#include <map>
#include <string>

namespace YV_TC {

class TypeCodeCopier {
public:
    // A compact copy of whole type codes.
    explicit TypeCodeCopier(TypeCodeGraph& graph) : m_graph(graph), m_compact(true) {}
    // Copies of what leads to placeholders of `id`, which become `target`.
    TypeCodeCopier(TypeCodeGraph& graph, const char* id, CORBA::TypeCode_ptr target)
        : m_graph(graph), m_compact(false), m_id(id), m_target(target)
    {
    }

    // The copy of `tc` (or `tc` itself where nothing needs copying).
    CORBA::TypeCode_ptr copy(CORBA::TypeCode_ptr tc);

private:
    bool must_copy(CORBA::TypeCode_ptr tc) const;

    TypeCodeGraph& m_graph;
    bool m_compact;
    std::string m_id;
    CORBA::TypeCode_ptr m_target = nullptr;
    std::map<CORBA::TypeCode_ptr, CORBA::TypeCode_ptr> m_done;
};

} // namespace YV_TC

#endif
