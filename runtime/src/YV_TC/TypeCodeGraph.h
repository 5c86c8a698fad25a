// The owner of counted type codes: the type codes made together (one type
// code decoded from CDR with those nested in it, or one made by a create_*_tc
// operation) live in one graph with one reference count. Pointers between
// type codes of one graph are not counted, so recursive type codes are plain
// cycles; a type code of another graph that one of them refers to is held by
// a counted reference. A reference to any type code of the graph keeps the
// whole graph; the last release frees it.
#ifndef YV_RT_YV_TC_TYPECODEGRAPH_H
#define YV_RT_YV_TC_TYPECODEGRAPH_H

#include "zantic_sys/CORBA/TypeCode.h"

#include <atomic>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace YV_TC {

class TypeCodeGraph {
public:
    // A member as it is being built: the graph copies the name.
    struct MemberSpec {
        std::string name;
        CORBA::TypeCode_ptr type;
        CORBA::LongLong label;
        CORBA::Short visibility;
    };

    // A new graph with one reference, which the caller owns (it hands the
    // reference over with one of the type codes it makes in the graph).
    static TypeCodeGraph* create() { return new TypeCodeGraph(); }

    void add_ref() { m_refs.fetch_add(1, std::memory_order_relaxed); }
    // Gives up one reference; the last frees the graph.
    void release();

    // A new type code of `kind` in this graph, without parameters yet.
    CORBA::TypeCode* make(CORBA::TCKind kind);
    // A placeholder for a recursive type of repository id `id`.
    CORBA::TypeCode* make_placeholder(const char* id);

    // The parameters of a type code of this graph; strings are copied,
    // referred type codes kept (counted when of another graph).
    void set_id_and_name(CORBA::TypeCode* tc, const char* id, const char* name);
    void set_length(CORBA::TypeCode* tc, CORBA::ULong length) { tc->m_length = length; }
    void set_content(CORBA::TypeCode* tc, CORBA::TypeCode_ptr content);
    void set_members(CORBA::TypeCode* tc, const std::vector<MemberSpec>& members);
    void set_default_index(CORBA::TypeCode* tc, CORBA::Long index) { tc->m_default = index; }
    void set_fixed(CORBA::TypeCode* tc, CORBA::UShort digits, CORBA::Short scale)
    {
        tc->m_digits = digits;
        tc->m_scale = scale;
    }
    void set_modifier(CORBA::TypeCode* tc, CORBA::Short modifier) { tc->m_modifier = modifier; }

    // True when a placeholder of create_recursive_tc is reachable from this
    // graph (in it, or in a graph it refers to).
    bool open() const { return m_open; }

    TypeCodeGraph(const TypeCodeGraph&) = delete;
    TypeCodeGraph& operator=(const TypeCodeGraph&) = delete;

private:
    TypeCodeGraph() = default;
    ~TypeCodeGraph();

    const char* text(const char* s);
    const CORBA::TypeCode_ptr* slot(CORBA::TypeCode_ptr target);

    std::atomic<long> m_refs{1};
    bool m_open = false;
    std::vector<std::unique_ptr<CORBA::TypeCode>> m_codes;
    std::deque<std::string> m_texts;
    std::deque<std::vector<CORBA::TypeCode::Member>> m_members;
    std::deque<CORBA::TypeCode_ptr> m_slots;
    // References to type codes of other graphs, released with this one.
    std::vector<CORBA::TypeCode_ptr> m_held;
};

// A graph under construction, made on first use: released unless handed
// over.
class GraphHolder {
public:
    GraphHolder() = default;
    GraphHolder(const GraphHolder&) = delete;
    GraphHolder& operator=(const GraphHolder&) = delete;
    ~GraphHolder()
    {
        if (m_graph != nullptr)
            m_graph->release();
    }

    TypeCodeGraph& get()
    {
        if (m_graph == nullptr)
            m_graph = TypeCodeGraph::create();
        return *m_graph;
    }
    // Hands the graph's one reference over with `root`, a type code of the
    // graph; any other type code gets a reference of its own and the graph
    // goes.
    CORBA::TypeCode_ptr hand_over(CORBA::TypeCode_ptr root)
    {
        if (m_graph == nullptr || root->yv_graph() != m_graph)
            return CORBA::TypeCode::_duplicate(root);
        m_graph = nullptr;
        return root;
    }

private:
    TypeCodeGraph* m_graph = nullptr;
};

} // namespace YV_TC

#endif
