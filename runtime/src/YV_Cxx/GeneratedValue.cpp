#include "zantic_sys/YV_Cxx/GeneratedValue.h"

#include "ValueFactoryRegistry.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"
#include "zantic_sys/YV_Cxx/ValueMarshal.h"

namespace YV_Cxx {

CORBA::ValueBase* copy_value(const CORBA::ValueBase* v)
{
    if (v == nullptr)
        return nullptr;
    CORBA::ULong count = 0;
    const char* const* ids = v->_yv_type_ids(count);
    if (count == 0)
        return nullptr;
    try {
        YV_CDR::OutputStream out;
        write_value(out, v);
        YV_CDR::InputStream in(out.data(), out.size(), YV_CDR::native_little_endian);
        return read_value(in, ids[0]);
    } catch (const CORBA::SystemException&) {
        return nullptr;
    }
}

void register_default_value_factory(const char* id, CORBA::ValueFactoryBase* factory)
{
    ValueFactoryRegistry& registry = ValueFactoryRegistry::instance();
    CORBA::ValueFactoryBase_var known = registry.find(id);
    if (known.in() == nullptr) {
        CORBA::ValueFactoryBase_var replaced = registry.add(id, factory);
    }
    factory->_remove_ref();
}

} // namespace YV_Cxx
