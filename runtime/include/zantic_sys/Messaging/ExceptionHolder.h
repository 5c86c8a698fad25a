// The value that carries an exception to an AMI reply handler's _excep
// operation; raise_exception throws it again.
#ifndef YV_RT_MESSAGING_EXCEPTIONHOLDER_H
#define YV_RT_MESSAGING_EXCEPTIONHOLDER_H

#include "../../omg/CORBA.hh"

#include <exception>

namespace Messaging {

class ExceptionHolder : public virtual CORBA::ValueBase {
public:
    ExceptionHolder() = default;
    // Holds the exception that `e` refers to (normally a CORBA::Exception).
    explicit ExceptionHolder(std::exception_ptr e);

    // Throws the exception held; a holder without one throws
    // CORBA::BAD_INV_ORDER.
    void raise_exception();
    CORBA::Boolean is_system_exception() const;

    CORBA::ValueBase* _copy_value() override;
    static ExceptionHolder* _downcast(CORBA::ValueBase* v);

    static const YV_FWString _yv_fw_type_id;

protected:
    ~ExceptionHolder() override;

private:
    std::exception_ptr m_exception;
};

typedef YV_Cxx::Value_var<ExceptionHolder> ExceptionHolder_var;
typedef YV_Cxx::Value_out<ExceptionHolder> ExceptionHolder_out;

} // namespace Messaging

#endif
