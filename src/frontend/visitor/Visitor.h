// The visitor of the tree: one visit operation per node class, and the keys
// under which Visitor_i registers the emitter for each node kind, both made
// from the table of node kinds (Visitor_Nodes.def).
#ifndef VISITOR_H
#define VISITOR_H

#include <iosfwd>

#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) class Class;
#include "Visitor_Nodes.def"

class Visitor {
public:
    // Keys of the element table, one per node kind (abstract interfaces
    // use the interface key).
#define YV_VISITOR_KEY(key, text) static const char* const key;
#include "Visitor_Nodes.def"

    // An error found during a walk. Each kind reports itself.
    class VisitorException {
    public:
        virtual ~VisitorException() = default;
        virtual void output_exception(std::ostream& os) = 0;
    };

    virtual ~Visitor() = default;

    // The visitor's registration key.
    virtual const char* name() = 0;

#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) virtual long visit_AST_##Name(Class* n) = 0;
#include "Visitor_Nodes.def"
};

#endif
