#include "YV_ORB/NamingClient.h"

#include "YV_GIOP/CdrText.h"
#include "YV_ORB/Invocation.h"
#include "zantic_sys/CORBA/NVList.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/YV_Cxx/CallArguments.h"
#include "zantic_sys/YV_Cxx/Operation.h"
#include "zantic_sys/YV_Streamable.h"

#include <memory>

namespace YV_ORB {

namespace {

// A CosNaming::Name in CDR: a sequence of {string id, string kind}.
class NameArgument : public YV_Streamable {
public:
    explicit NameArgument(const YV_GIOP::StringName& name) : m_name(name) {}
    void yv_copy_value(const YV_Streamable&) override { yv_type_mismatch(); }
    std::unique_ptr<YV_Streamable> yv_clone() const override { return std::make_unique<NameArgument>(m_name); }
    void yv_write(YV_CDR::OutputStream& out) const override
    {
        out.write_ulong(static_cast<CORBA::ULong>(m_name.components.size()));
        for (const YV_GIOP::StringName::Component& c : m_name.components) {
            YV_GIOP::write_text(out, c.id);
            YV_GIOP::write_text(out, c.kind);
        }
    }

private:
    const YV_GIOP::StringName& m_name;
};

// An object reference read from the reply.
class ObjectResult : public YV_Streamable {
public:
    void yv_copy_value(const YV_Streamable&) override { yv_type_mismatch(); }
    std::unique_ptr<YV_Streamable> yv_clone() const override { return std::make_unique<ObjectResult>(); }
    void yv_read(YV_CDR::InputStream& in) override { object = CORBA::Object::_yv_read(in); }
    CORBA::Object_var object;
};

const YV_Cxx::Operation resolve_operation = {"resolve", false, nullptr, 0};

} // namespace

CORBA::Object_ptr NamingClient::resolve(CORBA::Object_ptr context, const YV_GIOP::StringName& name)
{
    if (context == nullptr || !context->_yv_reference())
        throw CORBA::BAD_PARAM(0x4f4d000a, CORBA::COMPLETED_NO);
    NameArgument argument(name);
    YV_Cxx::CallArguments args;
    args.in(argument);
    ObjectResult result;
    try {
        Invocation::invoke(context->_yv_reference(), resolve_operation, &args, &result, true);
    } catch (const CORBA::UNKNOWN& e) {
        if (e.minor() != 0x4f4d0001)
            throw;
        throw CORBA::BAD_PARAM(0x4f4d000a, CORBA::COMPLETED_NO);
    }
    return result.object._retn();
}

} // namespace YV_ORB
