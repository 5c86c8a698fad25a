// What generated value types call in the runtime: the deep copy behind
// their _copy_value, and the registration of the factories the generator
// writes for value types without operations and initializers.
#ifndef YV_RT_YV_CXX_GENERATEDVALUE_H
#define YV_RT_YV_CXX_GENERATEDVALUE_H

#include "../CORBA/ValueBase.h"
#include "../CORBA/ValueFactoryBase.h"

namespace YV_Cxx {

// A deep copy of `v` with one reference: the value is written to a CDR
// stream and read back, so that the values it refers to are copied too and
// a graph keeps its shape (shared values stay shared, cycles stay cycles).
// The copy is made by the factory registered for its type. Null when `v`
// is null or cannot be copied so (no factory, a member that cannot travel).
CORBA::ValueBase* copy_value(const CORBA::ValueBase* v);

// Registers `factory` for `id` unless a factory is registered for it
// already; takes over the caller's reference. A program that registers its
// own factory with ORB::register_value_factory replaces this one.
void register_default_value_factory(const char* id, CORBA::ValueFactoryBase* factory);

// The factory of value box Box, which the runtime registers like a
// default factory: a box received as a ValueBase (or as a base of nothing)
// needs one.
template <class Box>
class BoxFactory : public CORBA::ValueFactoryBase {
public:
    CORBA::ValueBase* create_for_unmarshal() override { return Box::_yv_create_for_unmarshal(); }
};

// A static object of a generated source file: registers a new Init (the
// value type's default factory) when the program starts.
template <class Init>
class DefaultValueFactory {
public:
    explicit DefaultValueFactory(const char* id) { register_default_value_factory(id, new Init); }
};

} // namespace YV_Cxx

#endif
