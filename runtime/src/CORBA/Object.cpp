#include "zantic_sys/CORBA/Object.h"

#include "YV_GIOP/IOR.h"
#include "YV_ORB/Adapter.h"
#include "YV_ORB/Invocation.h"
#include "YV_ORB/Reference.h"
#include "YV_ORB/StandardStreamables.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/PortableServer/POA.h"
#include "zantic_sys/PortableServer/ServantBase.h"
#include "zantic_sys/YV_Cxx/BasicStreamable.h"
#include "zantic_sys/YV_Cxx/BasicStringStreamable.h"
#include "zantic_sys/YV_Cxx/CallArguments.h"
#include "zantic_sys/YV_Cxx/Operation.h"

#include <cstring>
#include <functional>
#include <string>

namespace CORBA {

namespace {

const YV_Cxx::Operation is_a_operation = {"_is_a", false, nullptr, 0};
const YV_Cxx::Operation non_existent_operation = {"_non_existent", false, nullptr, 0};

} // namespace

const YV_FWString Object::_yv_fw_type_id("IDL:omg.org/CORBA/Object:1.0");

Object::Object() = default;

Object::Object(Object_ptr other) : m_target(other ? other->m_target : nullptr) {}

Object::Object(const Object& other) : m_target(other.m_target) {}

Object::~Object() = default;

Object_ptr Object::_duplicate(Object_ptr obj)
{
    if (obj != nullptr)
        obj->_yv_add_ref();
    return obj;
}

Object_ptr Object::_yv_make_reference(PortableServer::POA* poa, const Octet* oid, ULong oid_length,
                                      const char* repository_id)
{
    const std::string id(reinterpret_cast<const char*>(oid), oid_length);
    return poa->_yv_adapter().reference(id, repository_id ? repository_id : "");
}

Object_ptr Object::_yv_make(std::shared_ptr<YV_ORB::Reference> target)
{
    Object_ptr obj = new Object();
    obj->m_target = std::move(target);
    return obj;
}

void Object::_yv_add_ref()
{
    ++m_refs;
}

void Object::_yv_release()
{
    if (--m_refs == 0)
        delete this;
}

const char* Object::_yv_repository_id() const
{
    return m_target ? m_target->repository_id().c_str() : "";
}

PortableServer::ServantBase* Object::_yv_servant() const
{
    PortableServer::POA_var poa;
    std::string id;
    if (!m_target || !m_target->local(poa, id))
        throw OBJ_ADAPTER(0, COMPLETED_NO);
    PortableServer::ServantBase* servant = poa.in() ? poa->_yv_adapter().find_servant(id) : nullptr;
    if (servant == nullptr)
        throw OBJECT_NOT_EXIST(0, COMPLETED_NO);
    return servant;
}

void Object::_yv_invoke(const char* operation, NVList_ptr args, YV_Streamable* result)
{
    const YV_Cxx::Operation op = {operation, false, nullptr, 0};
    _yv_invoke(op, args, result);
}

void Object::_yv_invoke(const YV_Cxx::Operation& op, NVList_ptr args, YV_Streamable* result)
{
    if (!m_target)
        throw NO_IMPLEMENT(0, COMPLETED_NO);
    YV_ORB::Invocation::invoke(m_target, op, args, result);
}

void Object::_yv_write(YV_CDR::OutputStream& out, Object_ptr obj)
{
    if (obj == nullptr) {
        YV_GIOP::IOR().write(out);
        return;
    }
    // Local objects (POAs, policies) cannot leave the process.
    if (!obj->m_target)
        throw MARSHAL(4, COMPLETED_NO);
    obj->m_target->ior().write(out);
}

Object_ptr Object::_yv_read(YV_CDR::InputStream& in)
{
    return YV_ORB::Reference::object(YV_ORB::Reference::from_ior(YV_GIOP::IOR::read(in)));
}

Boolean Object::_is_a(const char* repository_id)
{
    if (repository_id == nullptr)
        throw BAD_PARAM(0, COMPLETED_NO);
    if (_yv_fw_type_id == YV_FWString(repository_id))
        return true;
    if (!m_target)
        return false;
    if (std::strcmp(repository_id, m_target->repository_id().c_str()) == 0)
        return true;
    YV_ORB::TextStreamable id(&repository_id);
    YV_Cxx::CallArguments args;
    args.in(id);
    Boolean answer = false;
    YV_ORB::FlagStreamable result(&answer);
    _yv_invoke(is_a_operation, &args, &result);
    return answer;
}

Boolean Object::_non_existent()
{
    if (!m_target)
        return false;
    PortableServer::POA_var poa;
    std::string id;
    if (m_target->local(poa, id) && (poa.in() == nullptr || poa->_yv_adapter().find_servant(id) == nullptr))
        return true;
    Boolean answer = false;
    YV_ORB::FlagStreamable result(&answer);
    try {
        _yv_invoke(non_existent_operation, nullptr, &result);
    } catch (const OBJECT_NOT_EXIST&) {
        return true;
    }
    return answer;
}

Boolean Object::_is_equivalent(Object_ptr other)
{
    if (other == this)
        return true;
    if (other == nullptr || !m_target || !other->m_target)
        return false;
    return m_target == other->m_target || m_target->same_object(*other->m_target);
}

ULong Object::_hash(ULong maximum)
{
    std::size_t h = 0;
    if (m_target) {
        const std::vector<Octet>& key = m_target->object_key();
        h = std::hash<std::string>()(std::string(key.begin(), key.end()));
    }
    return maximum == 0 ? 0 : static_cast<ULong>(h % (static_cast<std::size_t>(maximum) + 1));
}

void release(Object_ptr obj)
{
    if (obj != nullptr)
        obj->_yv_release();
}

} // namespace CORBA
