#include "zantic_sys/YV_Cxx/AbstractMarshal.h"

#include "zantic_sys/CORBA/Object.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"
#include "zantic_sys/YV_Cxx/ValueMarshal.h"

namespace YV_Cxx {

void write_abstract(YV_CDR::OutputStream& out, CORBA::AbstractBase_ptr a)
{
    CORBA::Object_ptr object = a != nullptr ? a->_yv_object() : nullptr;
    out.write_boolean(object != nullptr);
    if (object != nullptr)
        CORBA::Object::_yv_write(out, object);
    else
        write_value(out, a != nullptr ? a->_yv_value() : nullptr);
}

void read_abstract(YV_CDR::InputStream& in, CORBA::Object_ptr& object, CORBA::ValueBase*& value)
{
    object = nullptr;
    value = nullptr;
    if (in.read_boolean())
        object = CORBA::Object::_yv_read(in);
    else
        value = read_value(in);
}

} // namespace YV_Cxx
