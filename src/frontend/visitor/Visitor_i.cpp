#include "Visitor_i.h"

#include "AST_Nodes.h"
#include "AST_Decl.h"
#include "idl_msg_header.h"

#include <ostream>

Visitor_i::NarrowFailure::NarrowFailure(Visitor* v, AST_Decl* d) : m_visitor(v ? v->name() : "visitor"), m_decl(d) {}

void Visitor_i::NarrowFailure::output_exception(std::ostream& os)
{
    idl_msg_header(m_decl ? m_decl->line() : 0, m_decl ? m_decl->column() : 0, m_decl ? m_decl->file_name() : nullptr);
    os << "internal error: " << m_visitor << " cannot handle a node of kind "
       << (m_decl ? static_cast<int>(m_decl->node_type()) : -1) << std::endl;
}

Visitor_i::~Visitor_i() = default;

void Visitor_i::add_element(const char* key, VisitorElement* e)
{
    std::unique_ptr<VisitorElement> owned(e);
    for (auto& entry : m_elements)
        if (entry.key == key) {
            entry.key_address = key;
            entry.element = std::move(owned);
            return;
        }
    m_elements.push_back(Entry{key, key, std::move(owned)});
}

Visitor_i::VisitorElement* Visitor_i::find_element(const char* key) const
{
    for (const auto& entry : m_elements)
        if (entry.key_address == key)
            return entry.element.get();
    for (const auto& entry : m_elements)
        if (entry.key == key)
            return entry.element.get();
    return nullptr;
}

long Visitor_i::dispatch(const char* key, AST_Decl* d)
{
    VisitorElement* e = find_element(key);
    return e ? e->visit(d) : 1;
}

// Every visit hands the node to the element registered under its kind's key.
#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) \
    long Visitor_i::visit_AST_##Name(Class* n) { return dispatch(key, n); }
#include "Visitor_Nodes.def"
