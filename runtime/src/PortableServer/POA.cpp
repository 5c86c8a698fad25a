#include "zantic_sys/PortableServer/POA.h"

#include "YV_ORB/Adapter.h"
#include "YV_ORB/ORBCore.h"
#include "YV_ORB/Reference.h"
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

std::string repository_id_of(ServantBase* servant, const std::string& id, POA_ptr poa)
{
    ObjectId_var oid = id_of(id);
    CORBA::String_var repository_id = servant->_primary_interface(oid.in(), poa);
    return repository_id.in() ? repository_id.in() : "";
}

} // namespace

const YV_FWString POA::_yv_fw_type_id("IDL:omg.org/PortableServer/POA:2.3");

POA::POA() = default;

POA::~POA() = default;

POA_ptr POA::_yv_root()
{
    return YV_ORB::ORBCore::instance().root_poa();
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

POA_ptr POA::create_POA(const char* adapter_name, POAManager_ptr manager, const CORBA::PolicyList& policies)
{
    if (adapter_name == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    return m_adapter->create_child(adapter_name, manager, policies);
}

POA_ptr POA::find_POA(const char* adapter_name, CORBA::Boolean)
{
    if (adapter_name == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    POA_ptr child = m_adapter->find_child(adapter_name);
    if (child == nullptr)
        throw AdapterNonExistent();
    return child;
}

void POA::destroy(CORBA::Boolean, CORBA::Boolean wait_for_completion)
{
    // Keeps this POA alive while its parent lets go of it.
    POA_var self = _duplicate(this);
    m_adapter->destroy(wait_for_completion);
}

ThreadPolicy_ptr POA::create_thread_policy(ThreadPolicyValue value)
{
    return new ThreadPolicy(value);
}

LifespanPolicy_ptr POA::create_lifespan_policy(LifespanPolicyValue value)
{
    return new LifespanPolicy(value);
}

IdUniquenessPolicy_ptr POA::create_id_uniqueness_policy(IdUniquenessPolicyValue value)
{
    return new IdUniquenessPolicy(value);
}

IdAssignmentPolicy_ptr POA::create_id_assignment_policy(IdAssignmentPolicyValue value)
{
    return new IdAssignmentPolicy(value);
}

ImplicitActivationPolicy_ptr POA::create_implicit_activation_policy(ImplicitActivationPolicyValue value)
{
    return new ImplicitActivationPolicy(value);
}

ServantRetentionPolicy_ptr POA::create_servant_retention_policy(ServantRetentionPolicyValue value)
{
    return new ServantRetentionPolicy(value);
}

RequestProcessingPolicy_ptr POA::create_request_processing_policy(RequestProcessingPolicyValue value)
{
    return new RequestProcessingPolicy(value);
}

char* POA::the_name()
{
    return CORBA::string_dup(m_adapter->name().c_str());
}

POA_ptr POA::the_parent()
{
    YV_ORB::Adapter* parent = m_adapter->parent();
    return parent ? _duplicate(&parent->poa()) : nullptr;
}

POAManager_ptr POA::the_POAManager()
{
    return POAManager::_duplicate(m_adapter->manager());
}

ServantBase* POA::get_servant()
{
    return m_adapter->default_servant();
}

void POA::set_servant(ServantBase* servant)
{
    m_adapter->default_servant(servant);
}

ObjectId* POA::activate_object(ServantBase* servant)
{
    return id_of(m_adapter->activate(servant, nullptr));
}

void POA::activate_object_with_id(const ObjectId& id, ServantBase* servant)
{
    const std::string key = key_of(id);
    m_adapter->activate(servant, &key);
}

void POA::deactivate_object(const ObjectId& id)
{
    m_adapter->deactivate(key_of(id));
}

CORBA::Object_ptr POA::create_reference(const char* repository_id)
{
    if (m_adapter->policies().assignment != SYSTEM_ID)
        throw WrongPolicy();
    return m_adapter->reference(m_adapter->new_system_id(), repository_id ? repository_id : "");
}

CORBA::Object_ptr POA::create_reference_with_id(const ObjectId& id, const char* repository_id)
{
    return m_adapter->reference(key_of(id), repository_id ? repository_id : "");
}

ObjectId* POA::servant_to_id(ServantBase* servant)
{
    if (servant == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    return id_of(m_adapter->servant_to_id(servant, false));
}

CORBA::Object_ptr POA::servant_to_reference(ServantBase* servant)
{
    if (servant == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    const std::string id = m_adapter->servant_to_id(servant, true);
    return m_adapter->reference(id, repository_id_of(servant, id, this));
}

ServantBase* POA::reference_to_servant(CORBA::Object_ptr reference)
{
    if (m_adapter->policies().retention != RETAIN && m_adapter->policies().processing != USE_DEFAULT_SERVANT)
        throw WrongPolicy();
    ObjectId_var id = reference_to_id(reference);
    ServantBase* servant = m_adapter->find_servant(key_of(id.in()));
    if (servant == nullptr)
        throw ObjectNotActive();
    servant->_add_ref();
    return servant;
}

ObjectId* POA::reference_to_id(CORBA::Object_ptr reference)
{
    if (reference == nullptr || !reference->_yv_reference())
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    POA_var poa;
    std::string id;
    if (!reference->_yv_reference()->local(poa, id) || poa.in() != this)
        throw WrongAdapter();
    return id_of(id);
}

ServantBase* POA::id_to_servant(const ObjectId& id)
{
    ServantBase* servant = m_adapter->id_to_servant(key_of(id));
    servant->_add_ref();
    return servant;
}

CORBA::Object_ptr POA::id_to_reference(const ObjectId& id)
{
    if (m_adapter->policies().retention != RETAIN)
        throw WrongPolicy();
    const std::string key = key_of(id);
    ServantBase* servant = m_adapter->is_active(key) ? m_adapter->find_servant(key) : nullptr;
    if (servant == nullptr)
        throw ObjectNotActive();
    return m_adapter->reference(key, repository_id_of(servant, key, this));
}

ServantBase* POA::_yv_find_servant(const std::string& id)
{
    return m_adapter->find_servant(id);
}

bool POA::_yv_find_id(ServantBase* servant, std::string& id)
{
    return m_adapter->find_id(servant, id);
}

void POA::_yv_forget(ServantBase* servant)
{
    POA_var root = _duplicate(_yv_root());
    root->m_adapter->forget(servant);
}

} // namespace PortableServer
