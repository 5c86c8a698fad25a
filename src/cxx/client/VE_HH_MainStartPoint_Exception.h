// The client header's exception emitter: a class deriving from
// CORBA::UserException, with the exception's members as public data, a
// default constructor, a constructor taking every member, the exception's
// name, repository id, _raise and _downcast (const and not), and its CDR
// form: _yv_write (the repository id, then the members, as a reply carries
// the exception) and _yv_read_members (the members, read after the id),
// both defined in the client source.
#ifndef VE_HH_MAINSTARTPOINT_EXCEPTION_H
#define VE_HH_MAINSTARTPOINT_EXCEPTION_H

#include "VE_Cxx.h"

class AST_Exception;
class CxxPrinter;

class VE_HH_MainStartPoint_Exception : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Exception(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    // The constructors, at the members' level.
    virtual void output_constructors(CxxPrinter& p, AST_Exception* e);
    // _name, _rep_id, _raise, _downcast and the CDR members, at the
    // members' level.
    virtual void output_standard_members(CxxPrinter& p, AST_Exception* e);
};

#endif
