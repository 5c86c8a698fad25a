// The object adapter: which policy lists make a POA, what each operation
// does under each policy, child POAs and their destruction, object keys,
// servant reference counts, and the POA manager's states for calls made in
// this process.
#include "YV_ORB/ObjectKey.h"

#include <omg/PortableServer.hh>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

namespace {

using namespace PortableServer;

// A servant of the interface "IDL:Test/Thing:1.0" that tells when it dies.
class Thing : public virtual ServantBase {
public:
    explicit Thing(bool* died = nullptr) : m_died(died) {}
    ~Thing() override
    {
        if (m_died != nullptr)
            *m_died = true;
    }
    CORBA::Boolean _yv_is_a(const YV_FWString& id) override { return id == YV_FWString("IDL:Test/Thing:1.0"); }
    CORBA::RepositoryId _primary_interface(const ObjectId&, POA_ptr) override
    {
        return CORBA::string_dup("IDL:Test/Thing:1.0");
    }

private:
    bool* m_died;
};

ObjectId* oid(const char* text)
{
    return string_to_ObjectId(text);
}

POA_var root()
{
    return POA::_duplicate(POA::_yv_root());
}

// Makes policies by name: "user", "system", "multiple", "unique",
// "implicit", "explicit", "nonretain", "retain", "default", "aom",
// "manager", "persistent", "transient", "single".
CORBA::PolicyList policies(std::initializer_list<const char*> names)
{
    POA_var r = root();
    CORBA::PolicyList list;
    list.length(static_cast<CORBA::ULong>(names.size()));
    CORBA::ULong i = 0;
    for (const std::string n : names) {
        CORBA::Policy_ptr p = nullptr;
        if (n == "user")
            p = r->create_id_assignment_policy(USER_ID);
        else if (n == "system")
            p = r->create_id_assignment_policy(SYSTEM_ID);
        else if (n == "multiple")
            p = r->create_id_uniqueness_policy(MULTIPLE_ID);
        else if (n == "unique")
            p = r->create_id_uniqueness_policy(UNIQUE_ID);
        else if (n == "implicit")
            p = r->create_implicit_activation_policy(IMPLICIT_ACTIVATION);
        else if (n == "explicit")
            p = r->create_implicit_activation_policy(NO_IMPLICIT_ACTIVATION);
        else if (n == "nonretain")
            p = r->create_servant_retention_policy(NON_RETAIN);
        else if (n == "retain")
            p = r->create_servant_retention_policy(RETAIN);
        else if (n == "default")
            p = r->create_request_processing_policy(USE_DEFAULT_SERVANT);
        else if (n == "aom")
            p = r->create_request_processing_policy(USE_ACTIVE_OBJECT_MAP_ONLY);
        else if (n == "manager")
            p = r->create_request_processing_policy(USE_SERVANT_MANAGER);
        else if (n == "persistent")
            p = r->create_lifespan_policy(PERSISTENT);
        else if (n == "transient")
            p = r->create_lifespan_policy(TRANSIENT);
        else if (n == "single")
            p = r->create_thread_policy(SINGLE_THREAD_MODEL);
        list[i++] = p;
    }
    return list;
}

// Destroys the POA when the test is done with it.
struct ChildPOA {
    POA_var poa;
    ChildPOA(const char* name, std::initializer_list<const char*> names)
        : poa(root()->create_POA(name, POAManager::_nil(), policies(names)))
    {
        POAManager_var m = poa->the_POAManager();
        m->activate();
    }
    ~ChildPOA()
    {
        if (poa.in() != nullptr)
            poa->destroy(false, false);
    }
    POA* operator->() const { return poa.in(); }
};

TEST(PoaPolicies, CreatePOAAcceptsWhatCanWorkTogether)
{
    struct Case {
        std::initializer_list<const char*> names;
        int invalid_index;  // -1: accepted
    };
    const Case cases[] = {
        {{}, -1},
        {{"persistent", "user"}, -1},
        {{"nonretain", "default"}, -1},
        {{"nonretain", "manager"}, -1},
        {{"retain", "default", "multiple"}, -1},
        {{"implicit", "system"}, -1},
        {{"single", "transient", "unique", "explicit", "retain", "aom", "system"}, -1},
        {{"nonretain"}, 0},
        {{"nonretain", "aom"}, 0},
        {{"user", "implicit"}, 1},
        {{"implicit", "user"}, 0},
        {{"implicit", "nonretain", "default"}, 0},
    };
    int n = 0;
    for (const Case& c : cases) {
        const std::string name = "policy-case-" + std::to_string(n++);
        SCOPED_TRACE(name);
        try {
            POA_var child = root()->create_POA(name.c_str(), POAManager::_nil(), policies(c.names));
            EXPECT_EQ(c.invalid_index, -1);
            child->destroy(false, false);
        } catch (const POA::InvalidPolicy& e) {
            EXPECT_EQ(static_cast<int>(e.index), c.invalid_index);
        }
    }
}

TEST(PoaPolicies, OperationsFollowThePolicies)
{
    ChildPOA user("ops-user", {"user"});
    Thing a, b;
    EXPECT_THROW(user->activate_object(&a), POA::WrongPolicy);
    EXPECT_THROW(user->create_reference("IDL:Test/Thing:1.0"), POA::WrongPolicy);
    ObjectId_var id = oid("a");
    user->activate_object_with_id(id.in(), &a);
    EXPECT_THROW(user->activate_object_with_id(id.in(), &b), POA::ObjectAlreadyActive);
    ObjectId_var other = oid("other");
    EXPECT_THROW(user->activate_object_with_id(other.in(), &a), POA::ServantAlreadyActive);
    ObjectId_var found = user->servant_to_id(&a);
    EXPECT_EQ(found->length(), 1u);
    EXPECT_THROW(user->servant_to_id(&b), POA::ServantNotActive);
    CORBA::Object_var ref = user->id_to_reference(id.in());
    EXPECT_TRUE(ref->_is_a("IDL:Test/Thing:1.0"));
    EXPECT_FALSE(ref->_non_existent());
    ServantBase_var servant = user->reference_to_servant(ref.in());
    EXPECT_EQ(servant.in(), &a);
    user->deactivate_object(id.in());
    EXPECT_THROW(user->deactivate_object(id.in()), POA::ObjectNotActive);
    EXPECT_TRUE(ref->_non_existent());
    EXPECT_THROW(user->id_to_servant(id.in()), POA::ObjectNotActive);
    EXPECT_THROW(user->reference_to_servant(ref.in()), POA::ObjectNotActive);
    ObjectId_var back = user->reference_to_id(ref.in());
    EXPECT_EQ(back->length(), 1u);
    EXPECT_THROW(user->get_servant(), POA::WrongPolicy);

    // A reference of another POA is not this one's.
    ChildPOA system("ops-system", {"multiple", "implicit"});
    EXPECT_THROW(system->reference_to_id(ref.in()), POA::WrongAdapter);
    // Implicit activation with multiple ids: a new object every time.
    ObjectId_var one = system->servant_to_id(&b);
    ObjectId_var two = system->servant_to_id(&b);
    EXPECT_NE(std::string(reinterpret_cast<const char*>(one->get_buffer()), one->length()),
              std::string(reinterpret_cast<const char*>(two->get_buffer()), two->length()));
    CORBA::Object_var made = system->create_reference("IDL:Test/Thing:1.0");
    EXPECT_TRUE(made->_non_existent());
}

TEST(PoaPolicies, ADefaultServantServesEveryId)
{
    ChildPOA poa("default-servant", {"nonretain", "default", "user", "multiple"});
    EXPECT_THROW(poa->get_servant(), POA::NoServant);
    bool died = false;
    Thing* servant = new Thing(&died);
    poa->set_servant(servant);
    servant->_remove_ref();  // the POA keeps the servant alive
    ObjectId_var id = oid("anything");
    CORBA::Object_var ref = poa->create_reference_with_id(id.in(), "IDL:Test/Thing:1.0");
    EXPECT_FALSE(ref->_non_existent());
    EXPECT_TRUE(ref->_is_a("IDL:Test/Thing:1.0"));
    ServantBase_var got = poa->id_to_servant(id.in());
    EXPECT_EQ(got.in(), servant);
    got = nullptr;
    EXPECT_THROW(poa->id_to_reference(id.in()), POA::WrongPolicy);
    EXPECT_THROW(poa->activate_object_with_id(id.in(), servant), POA::WrongPolicy);
    EXPECT_FALSE(died);
    poa->set_servant(nullptr);
    EXPECT_TRUE(died);
    EXPECT_TRUE(ref->_non_existent());
}

TEST(PoaServants, AreCountedAndReleasedWhenTheirLastActivationEnds)
{
    ChildPOA poa("counting", {});
    bool died = false;
    Thing* servant = new Thing(&died);
    ObjectId_var id = poa->activate_object(servant);
    EXPECT_EQ(servant->_refcount_value(), 2u);
    servant->_remove_ref();
    CORBA::Object_var ref = poa->id_to_reference(id.in());
    EXPECT_FALSE(ref->_non_existent());
    poa->deactivate_object(id.in());
    EXPECT_TRUE(died);
    EXPECT_TRUE(ref->_non_existent());

    // A servant on the stack destroyed while active is forgotten.
    CORBA::Object_var gone;
    {
        Thing local;
        ObjectId_var local_id = poa->activate_object(&local);
        gone = poa->id_to_reference(local_id.in());
        EXPECT_FALSE(gone->_non_existent());
    }
    EXPECT_TRUE(gone->_non_existent());
}

TEST(PoaTree, ChildrenAreFoundNamedAndDestroyedWithTheirParent)
{
    POA_var parent = root()->create_POA("parent", POAManager::_nil(), policies({}));
    POAManager_var manager = parent->the_POAManager();
    POA_var child = parent->create_POA("child", manager.in(), policies({"persistent", "user"}));
    EXPECT_THROW(parent->create_POA("child", manager.in(), policies({})), POA::AdapterAlreadyExists);
    POA_var found = parent->find_POA("child", true);
    EXPECT_EQ(found.in(), child.in());
    EXPECT_THROW(parent->find_POA("nobody", false), POA::AdapterNonExistent);
    CORBA::String_var name = child->the_name();
    EXPECT_STREQ(name.in(), "child");
    POA_var up = child->the_parent();
    EXPECT_EQ(up.in(), parent.in());
    POAManager_var shared = child->the_POAManager();
    EXPECT_EQ(shared.in(), manager.in());
    CORBA::String_var root_name = root()->the_name();
    EXPECT_STREQ(root_name.in(), "RootPOA");
    POA_var no_parent = root()->the_parent();
    EXPECT_EQ(no_parent.in(), nullptr);

    Thing servant;
    ObjectId_var id = oid("kept");
    child->activate_object_with_id(id.in(), &servant);
    CORBA::Object_var ref = child->id_to_reference(id.in());
    manager->activate();
    EXPECT_FALSE(ref->_non_existent());
    parent->destroy(false, true);
    EXPECT_TRUE(ref->_non_existent());
    EXPECT_THROW(root()->find_POA("parent", false), POA::AdapterNonExistent);
    EXPECT_EQ(servant._refcount_value(), 1u);
}

// Keys of persistent POAs are the same whenever the POA is made again;
// those of transient POAs never are.
TEST(PoaKeys, PersistentKeysOutliveTheirPOA)
{
    auto key_of = [](const char* poa_name, std::initializer_list<const char*> names) {
        POA_var poa = root()->create_POA(poa_name, POAManager::_nil(), policies(names));
        ObjectId_var id = oid("obj");
        CORBA::Object_var ref = poa->create_reference_with_id(id.in(), "IDL:Test/Thing:1.0");
        CORBA::ULong hash = ref->_hash(0xffffffff);
        poa->destroy(false, false);
        return hash;
    };
    EXPECT_EQ(key_of("stable", {"persistent", "user"}), key_of("stable", {"persistent", "user"}));
    EXPECT_NE(key_of("fleeting", {"user"}), key_of("fleeting", {"user"}));

    YV_ORB::ObjectKey transient;
    transient.nonce = {1, 2, 3, 4, 5, 6, 7, 8};
    transient.adapter_number = 0x01020304;
    transient.object_id = std::string("id\0x", 4);
    YV_ORB::ObjectKey persistent;
    persistent.persistent = true;
    persistent.path = {"a", "", "b c"};
    persistent.object_id = "";
    for (const YV_ORB::ObjectKey& k : {transient, persistent}) {
        const std::vector<CORBA::Octet> octets = k.encode();
        YV_ORB::ObjectKey back;
        ASSERT_TRUE(YV_ORB::ObjectKey::parse(octets.data(), octets.size(), back));
        EXPECT_EQ(back.persistent, k.persistent);
        EXPECT_EQ(back.nonce, k.persistent ? YV_ORB::ObjectKey::Nonce{} : k.nonce);
        EXPECT_EQ(back.adapter_number, k.adapter_number);
        EXPECT_EQ(back.path, k.path);
        EXPECT_EQ(back.object_id, k.object_id);
    }
    for (const char* foreign : {"", "EchoKey", "YVT", "YVTshort", "YVP\x02onlyone", "NameService"}) {
        YV_ORB::ObjectKey back;
        EXPECT_FALSE(YV_ORB::ObjectKey::parse(reinterpret_cast<const CORBA::Octet*>(foreign), std::strlen(foreign), back))
            << foreign;
    }
}

TEST(PoaManager, StatesApplyToCallsOfThisProcess)
{
    ChildPOA poa("managed", {});
    Thing servant;
    ObjectId_var id = poa->activate_object(&servant);
    CORBA::Object_var ref = poa->id_to_reference(id.in());
    POAManager_var manager = poa->the_POAManager();
    EXPECT_EQ(manager->get_state(), POAManager::ACTIVE);
    manager->hold_requests(false);
    EXPECT_FALSE(ref->_non_existent());  // never held: it would hang this thread
    manager->discard_requests(true);
    EXPECT_EQ(manager->get_state(), POAManager::DISCARDING);
    // (An id other than the reference's own: only the servant can answer.)
    EXPECT_THROW(ref->_is_a("IDL:Test/Other:1.0"), CORBA::TRANSIENT);
    manager->activate();
    EXPECT_FALSE(ref->_is_a("IDL:Test/Other:1.0"));
    manager->deactivate(false, true);
    EXPECT_THROW(ref->_is_a("IDL:Test/Other:1.0"), CORBA::OBJ_ADAPTER);
    EXPECT_THROW(manager->activate(), POAManager::AdapterInactive);
    EXPECT_EQ(manager->get_state(), POAManager::INACTIVE);
}

TEST(PoaObjectIds, ConvertFromAndToStrings)
{
    ObjectId_var id = string_to_ObjectId("abc");
    ASSERT_EQ(id->length(), 3u);
    EXPECT_EQ(id[1], 'b');
    CORBA::String_var s = ObjectId_to_string(id.in());
    EXPECT_STREQ(s.in(), "abc");
}

} // namespace
