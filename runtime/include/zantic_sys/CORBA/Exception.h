// The root of the CORBA exceptions, and the base of the exceptions that IDL
// files declare.
#ifndef YV_RT_CORBA_EXCEPTION_H
#define YV_RT_CORBA_EXCEPTION_H

#include "Types.h"

#include <exception>

namespace YV_CDR {
class OutputStream;
} // namespace YV_CDR

namespace CORBA {

class Exception : public std::exception {
public:
    ~Exception() override;

    // The exception's unqualified IDL name and its repository id.
    virtual const char* _name() const = 0;
    virtual const char* _rep_id() const = 0;
    // Throws a copy of the object as its most derived type.
    virtual void _raise() const = 0;

    const char* what() const noexcept override;

    // Writes the exception as a reply carries it: the repository id, then
    // the members.
    void _yv_write(YV_CDR::OutputStream& out) const;
    // The members alone, as an any carries them (system exceptions: minor
    // code and completion status). Exceptions that cannot travel raise
    // MARSHAL.
    virtual void _yv_write_members(YV_CDR::OutputStream& out) const;

protected:
    Exception() = default;
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
};

class UserException : public Exception {
public:
    ~UserException() override;
    static UserException* _downcast(Exception* e);
    static const UserException* _downcast(const Exception* e);

protected:
    UserException() = default;
    UserException(const UserException&) = default;
    UserException& operator=(const UserException&) = default;
};

} // namespace CORBA

#endif
