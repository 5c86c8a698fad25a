// The factories the ORB makes values with when it reads them: one per
// repository id, registered with ORB::register_value_factory.
#ifndef YV_RT_CORBA_VALUEFACTORYBASE_H
#define YV_RT_CORBA_VALUEFACTORYBASE_H

#include "../YV_Cxx/Ref_var.h"
#include "Types.h"
#include "ValueBase.h"

#include <atomic>

namespace CORBA {

class ValueFactoryBase {
public:
    virtual void _add_ref();
    virtual void _remove_ref();
    // A new value with one reference, its state not yet read.
    virtual ValueBase* create_for_unmarshal() = 0;

    static ValueFactoryBase* _downcast(ValueFactoryBase* f) { return f; }

protected:
    ValueFactoryBase() = default;
    ValueFactoryBase(const ValueFactoryBase&) = delete;
    ValueFactoryBase& operator=(const ValueFactoryBase&) = delete;
    virtual ~ValueFactoryBase();

private:
    std::atomic<ULong> m_refs{1};
};

typedef ValueFactoryBase* ValueFactory;

} // namespace CORBA

namespace YV_Cxx {

struct ValueFactoryTraits {
    static CORBA::ValueFactoryBase* duplicate(CORBA::ValueFactoryBase* p)
    {
        if (p != nullptr)
            p->_add_ref();
        return p;
    }
    static void release(CORBA::ValueFactoryBase* p)
    {
        if (p != nullptr)
            p->_remove_ref();
    }
    static CORBA::ValueFactoryBase* copy(CORBA::ValueFactoryBase* p) { return duplicate(p); }
};

} // namespace YV_Cxx

namespace CORBA {
typedef YV_Cxx::Ref_var<ValueFactoryBase, YV_Cxx::ValueFactoryTraits> ValueFactoryBase_var;
}

#endif
