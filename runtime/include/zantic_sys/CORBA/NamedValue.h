// One argument of a request: a name, an any holding the value and the
// direction flags. The any is the named value's own or one it refers to.
#ifndef YV_RT_CORBA_NAMEDVALUE_H
#define YV_RT_CORBA_NAMEDVALUE_H

#include "Any.h"
#include "Types.h"

#include <memory>
#include <string>

namespace CORBA {

class NamedValue {
public:
    // Owns a copy of `value`.
    NamedValue(const char* name, const Any& value, Flags flags);
    virtual ~NamedValue();
    NamedValue(const NamedValue&) = delete;
    NamedValue& operator=(const NamedValue&) = delete;

    const char* name() const { return m_name.c_str(); }
    Any* value() const { return m_value; }
    Flags flags() const { return m_flags; }

    static NamedValue_ptr _duplicate(NamedValue_ptr nv) { return nv; }
    static NamedValue_ptr _nil() { return nullptr; }

protected:
    // Refers to `value`, which the caller keeps alive.
    NamedValue(Any& value, Flags flags);

private:
    std::string m_name;
    std::unique_ptr<Any> m_owned;
    Any* m_value;
    Flags m_flags;
};

inline Boolean is_nil(NamedValue_ptr nv) { return nv == nullptr; }

} // namespace CORBA

#endif
