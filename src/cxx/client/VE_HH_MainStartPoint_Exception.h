// The client header's exception emitter: a class deriving from
// CORBA::UserException, with the exception's members as public data, a
// default constructor, a constructor taking every member, and the
// exception's name, repository id, _raise and _downcast.
#ifndef VE_HH_MAINSTARTPOINT_EXCEPTION_H
#define VE_HH_MAINSTARTPOINT_EXCEPTION_H

#include "VE_Cxx.h"

class AST_Exception;

class VE_HH_MainStartPoint_Exception : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Exception(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    // The constructors, one level deeper.
    virtual void output_constructors(AST_Exception* e);
    // _name, _rep_id, _raise and _downcast, one level deeper.
    virtual void output_standard_members(AST_Exception* e);
};

#endif
