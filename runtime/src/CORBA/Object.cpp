#include "zantic_sys/CORBA/Object.h"

#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/PortableServer/POA.h"
#include "zantic_sys/PortableServer/ServantBase.h"
#include "zantic_sys/YV_Cxx/BasicStreamable.h"
#include "zantic_sys/YV_Cxx/BasicStringStreamable.h"
#include "zantic_sys/YV_Cxx_NV/StackBasedNVList.h"
#include "zantic_sys/YV_Cxx_NV/StackBasedNamedValue.h"
#include "zantic_sys/YV_Cxx/Operation.h"
#include "zantic_sys/YV_Runtime.h"

#include <functional>
#include <string>

namespace CORBA {

// What a reference names: the object `id` of adapter `poa`, of the
// interface `repository_id`.
struct Object::Target {
    PortableServer::POA_var poa;
    std::string id;
    std::string repository_id;
};

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
    auto target = std::make_shared<Target>();
    target->poa = PortableServer::POA::_duplicate(poa);
    target->id.assign(reinterpret_cast<const char*>(oid), oid_length);
    target->repository_id = repository_id ? repository_id : "";
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
    return m_target ? m_target->repository_id.c_str() : "";
}

PortableServer::ServantBase* Object::_yv_servant() const
{
    PortableServer::ServantBase* servant = nullptr;
    if (m_target)
        servant = m_target->poa->_yv_find_servant(m_target->id);
    if (servant == nullptr)
        throw OBJECT_NOT_EXIST(0, COMPLETED_NO);
    return servant;
}

void Object::_yv_invoke(const char* operation, NVList_ptr args, YV_Streamable* result)
{
    YV_Runtime::invoke(_yv_servant(), operation, args, result);
}

void Object::_yv_invoke(const YV_Cxx::Operation& op, NVList_ptr args, YV_Streamable* result)
{
    YV_Runtime::invoke(_yv_servant(), op.name, args, result);
}

void Object::_yv_write(YV_CDR::OutputStream&, Object_ptr)
{
    throw NO_IMPLEMENT(0, COMPLETED_NO);
}

Object_ptr Object::_yv_read(YV_CDR::InputStream&)
{
    throw NO_IMPLEMENT(0, COMPLETED_NO);
}

Boolean Object::_is_a(const char* repository_id)
{
    if (!m_target)
        return repository_id != nullptr && _yv_fw_type_id == YV_FWString(repository_id);
    YV_Cxx::StringStreamable id(&repository_id);
    Any id_any(&id, YV_SHALLOW_COPY);
    YV_Cxx_NV::StackBasedNamedValue id_nv(id_any, ARG_IN);
    NamedValue* values[1] = {&id_nv};
    YV_Cxx_NV::StackBasedNVList args(1, values);
    Boolean answer = false;
    YV_Cxx::BasicStreamable<Boolean> result(&answer);
    _yv_invoke("_is_a", &args, &result);
    return answer;
}

Boolean Object::_non_existent()
{
    if (!m_target)
        return false;
    if (m_target->poa->_yv_find_servant(m_target->id) == nullptr)
        return true;
    Boolean answer = false;
    YV_Cxx::BasicStreamable<Boolean> result(&answer);
    _yv_invoke("_non_existent", nullptr, &result);
    return answer;
}

Boolean Object::_is_equivalent(Object_ptr other)
{
    if (other == this)
        return true;
    if (other == nullptr || !m_target || !other->m_target)
        return false;
    return m_target == other->m_target
           || (m_target->poa.ptr() == other->m_target->poa.ptr() && m_target->id == other->m_target->id);
}

ULong Object::_hash(ULong maximum)
{
    const std::size_t h = m_target ? std::hash<std::string>()(m_target->id) : 0;
    return maximum == 0 ? 0 : static_cast<ULong>(h % (static_cast<std::size_t>(maximum) + 1));
}

void release(Object_ptr obj)
{
    if (obj != nullptr)
        obj->_yv_release();
}

} // namespace CORBA
