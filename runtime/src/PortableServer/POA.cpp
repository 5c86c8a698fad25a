#include "zantic_sys/PortableServer/POA.h"

#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/String_var.h"
#include "zantic_sys/CORBA/string_functions.h"
#include "zantic_sys/PortableServer/ServantBase.h"

#include <string>

namespace PortableServer {

namespace {

std::string key_of(const ObjectId& id)
{
    return std::string(reinterpret_cast<const char*>(id.get_buffer()), id.length());
}

ObjectId* id_of(const std::string& key)
{
    ObjectId* id = new ObjectId(static_cast<CORBA::ULong>(key.size()));
    id->length(static_cast<CORBA::ULong>(key.size()));
    for (CORBA::ULong i = 0; i < id->length(); ++i)
        (*id)[i] = static_cast<CORBA::Octet>(key[i]);
    return id;
}

CORBA::Object_ptr reference_to(POA* poa, const std::string& key, const char* repository_id)
{
    return CORBA::Object::_yv_make_reference(poa, reinterpret_cast<const CORBA::Octet*>(key.data()),
                                             static_cast<CORBA::ULong>(key.size()), repository_id);
}

} // namespace

const YV_FWString POA::_yv_fw_type_id("IDL:omg.org/PortableServer/POA:2.3");

POA::POA() = default;

POA::~POA() = default;

POA_ptr POA::_yv_root()
{
    // Never released: the root adapter lives as long as the process.
    static POA* root = new POA();
    return root;
}

POA_ptr POA::_duplicate(POA_ptr poa)
{
    if (poa != nullptr)
        poa->_yv_add_ref();
    return poa;
}

POA_ptr POA::_narrow(CORBA::Object_ptr obj)
{
    return _duplicate(dynamic_cast<POA_ptr>(obj));
}

CORBA::Boolean POA::_is_a(const char* repository_id)
{
    return repository_id != nullptr
           && (_yv_fw_type_id == YV_FWString(repository_id) || CORBA::Object::_is_a(repository_id));
}

std::string POA::activate(const std::string& id, ServantBase* servant)
{
    if (servant == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_ids.count(servant) != 0)
            throw ServantAlreadyActive();
        if (m_servants.count(id) != 0)
            throw ObjectAlreadyActive();
        m_servants[id] = servant;
        m_ids[servant] = id;
    }
    servant->_yv_poa(this);
    servant->_add_ref();
    return id;
}

ObjectId* POA::activate_object(ServantBase* servant)
{
    std::string id;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        id = "yv-" + std::to_string(++m_next_id);
    }
    return id_of(activate(id, servant));
}

void POA::activate_object_with_id(const ObjectId& id, ServantBase* servant)
{
    activate(key_of(id), servant);
}

void POA::deactivate_object(const ObjectId& id)
{
    ServantBase* servant = nullptr;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        auto found = m_servants.find(key_of(id));
        if (found == m_servants.end())
            throw ObjectNotActive();
        servant = found->second;
        m_ids.erase(servant);
        m_servants.erase(found);
    }
    servant->_yv_poa(nullptr);
    servant->_remove_ref();
}

CORBA::Object_ptr POA::create_reference_with_id(const ObjectId& id, const char* repository_id)
{
    return reference_to(this, key_of(id), repository_id);
}

ObjectId* POA::servant_to_id(ServantBase* servant)
{
    std::string id;
    if (!_yv_find_id(servant, id))
        throw ServantNotActive();
    return id_of(id);
}

CORBA::Object_ptr POA::servant_to_reference(ServantBase* servant)
{
    std::string id;
    if (!_yv_find_id(servant, id)) {
        ObjectId_var fresh = activate_object(servant);
        id = key_of(fresh.in());
    }
    ObjectId_var oid = id_of(id);
    CORBA::String_var repository_id = servant->_primary_interface(oid.in(), this);
    return reference_to(this, id, repository_id.in());
}

ServantBase* POA::reference_to_servant(CORBA::Object_ptr reference)
{
    if (reference == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    try {
        return reference->_yv_servant();
    } catch (const CORBA::OBJECT_NOT_EXIST&) {
        throw ObjectNotActive();
    }
}

ObjectId* POA::reference_to_id(CORBA::Object_ptr reference)
{
    ServantBase* servant = reference_to_servant(reference);
    return servant_to_id(servant);
}

ServantBase* POA::id_to_servant(const ObjectId& id)
{
    ServantBase* servant = _yv_find_servant(key_of(id));
    if (servant == nullptr)
        throw ObjectNotActive();
    return servant;
}

CORBA::Object_ptr POA::id_to_reference(const ObjectId& id)
{
    ServantBase* servant = id_to_servant(id);
    CORBA::String_var repository_id = servant->_primary_interface(id, this);
    return reference_to(this, key_of(id), repository_id.in());
}

POAManager_ptr POA::the_POAManager()
{
    return &m_manager;
}

char* POA::the_name() const
{
    return CORBA::string_dup("RootPOA");
}

ServantBase* POA::_yv_find_servant(const std::string& id)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto found = m_servants.find(id);
    return found == m_servants.end() ? nullptr : found->second;
}

bool POA::_yv_find_id(ServantBase* servant, std::string& id)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto found = m_ids.find(servant);
    if (found == m_ids.end())
        return false;
    id = found->second;
    return true;
}

void POA::_yv_forget(ServantBase* servant)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto found = m_ids.find(servant);
    if (found == m_ids.end())
        return;
    m_servants.erase(found->second);
    m_ids.erase(found);
}

} // namespace PortableServer
