// The system exceptions: a minor code and a completion status, one class
// per standard name (the list is SystemExceptions.def).
#ifndef YV_RT_CORBA_SYSTEMEXCEPTION_H
#define YV_RT_CORBA_SYSTEMEXCEPTION_H

#include "Exception.h"

namespace CORBA {

class SystemException : public Exception {
public:
    ~SystemException() override;

    ULong minor() const { return m_minor; }
    void minor(ULong m) { m_minor = m; }
    CompletionStatus completed() const { return m_completed; }
    void completed(CompletionStatus c) { m_completed = c; }

    static SystemException* _downcast(Exception* e);
    static const SystemException* _downcast(const Exception* e);

    void _yv_write_members(YV_CDR::OutputStream& out) const override;

protected:
    SystemException(ULong minor, CompletionStatus completed)
        : m_minor(minor), m_completed(completed) {}
    SystemException(const SystemException&) = default;
    SystemException& operator=(const SystemException&) = default;

private:
    ULong m_minor;
    CompletionStatus m_completed;
};

#define YV_SYSTEM_EXCEPTION(name)                                              \
    class name : public SystemException {                                      \
    public:                                                                    \
        explicit name(ULong minor = 0, CompletionStatus completed = COMPLETED_NO) \
            : SystemException(minor, completed) {}                             \
        const char* _name() const override { return #name; }                  \
        const char* _rep_id() const override { return "IDL:omg.org/CORBA/" #name ":1.0"; } \
        void _raise() const override { throw *this; }                          \
        static name* _downcast(Exception* e) { return dynamic_cast<name*>(e); } \
        static const name* _downcast(const Exception* e) { return dynamic_cast<const name*>(e); } \
    };
#include "SystemExceptions.def"
#undef YV_SYSTEM_EXCEPTION

} // namespace CORBA

#endif
