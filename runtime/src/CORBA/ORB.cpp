#include "zantic_sys/CORBA/ORB.h"

#include "YV_GIOP/IIOPProfile.h"
#include "YV_GIOP/IOR.h"
#include "YV_GIOP/ObjectURL.h"
#include "YV_GIOP/StringName.h"
#include "YV_ORB/CallContext.h"
#include "YV_ORB/NamingClient.h"
#include "YV_ORB/ORBCore.h"
#include "YV_ORB/ORBOptions.h"
#include "YV_ORB/Reference.h"
#include "YV_Cxx/ValueFactoryRegistry.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/string_functions.h"
#include "zantic_sys/PortableServer/POA.h"

#include <chrono>
#include <cstring>
#include <thread>

namespace CORBA {

namespace {

// Minor codes of the standard for BAD_INV_ORDER.
constexpr ULong minor_in_request = 0x4f4d0003;
constexpr ULong minor_shut_down = 0x4f4d0004;

YV_ORB::ORBCore& core()
{
    return YV_ORB::ORBCore::instance();
}

bool starts_with_nocase(const char* text, const char* prefix)
{
    for (; *prefix != '\0'; ++text, ++prefix)
        if (std::tolower(static_cast<unsigned char>(*text)) != *prefix)
            return false;
    return true;
}

// The reference a corbaloc URL of iiop addresses names.
Object_ptr located(const YV_GIOP::ObjectURL& url)
{
    YV_GIOP::IOR ior;
    for (const YV_GIOP::ObjectURL::Address& a : url.addresses) {
        YV_GIOP::IIOPProfile p;
        p.version = a.version;
        p.host = a.host;
        p.port = a.port;
        p.object_key.assign(url.key.begin(), url.key.end());
        ior.profiles.push_back(p.encode());
    }
    return YV_ORB::Reference::object(YV_ORB::Reference::from_ior(std::move(ior)));
}

} // namespace

ORB_ptr ORB::_yv_instance()
{
    static ORB orb;
    return &orb;
}

Boolean ORB::_yv_is_shut_down() const
{
    return core().is_shut_down();
}

void ORB::check_running() const
{
    if (core().is_shut_down())
        throw BAD_INV_ORDER(minor_shut_down, COMPLETED_NO);
}

char* ORB::object_to_string(Object_ptr obj)
{
    check_running();
    if (obj == nullptr)
        return string_dup(YV_GIOP::IOR().to_string().c_str());
    if (!obj->_yv_reference())
        throw MARSHAL(4, COMPLETED_NO);
    return string_dup(obj->_yv_reference()->ior().to_string().c_str());
}

Object_ptr ORB::string_to_object(const char* text)
{
    check_running();
    if (text == nullptr)
        throw BAD_PARAM(0, COMPLETED_NO);
    if (starts_with_nocase(text, "ior:")) {
        YV_GIOP::IOR ior;
        try {
            ior = YV_GIOP::IOR::from_string(text);
        } catch (const MARSHAL&) {
            throw BAD_PARAM(YV_GIOP::ObjectURL::minor_bad_syntax, COMPLETED_NO);
        }
        return YV_ORB::Reference::object(YV_ORB::Reference::from_ior(std::move(ior)));
    }
    if (!YV_GIOP::ObjectURL::is_url(text))
        throw BAD_PARAM(YV_GIOP::ObjectURL::minor_bad_scheme, COMPLETED_NO);
    const YV_GIOP::ObjectURL url = YV_GIOP::ObjectURL::parse(text);
    const bool rir = url.addresses.front().rir;
    if (url.scheme == YV_GIOP::ObjectURL::corbaloc)
        return rir ? resolve_initial_references(url.key.c_str()) : located(url);
    Object_var context = rir ? resolve_initial_references("NameService") : located(url);
    if (url.name.empty())
        return context._retn();
    YV_GIOP::StringName name;
    if (!YV_GIOP::StringName::parse(url.name, name))
        throw BAD_PARAM(YV_GIOP::ObjectURL::minor_bad_syntax, COMPLETED_NO);
    return YV_ORB::NamingClient::resolve(context.in(), name);
}

Object_ptr ORB::resolve_initial_references(const char* identifier)
{
    check_running();
    if (identifier == nullptr)
        throw InvalidName();
    const std::string name = identifier;
    if (name == "RootPOA")
        return PortableServer::POA::_duplicate(core().root_poa());
    if (Object_ptr registered = core().registered_reference(name))
        return registered;
    const YV_ORB::ORBOptions options = core().options();
    auto given = options.init_refs.find(name);
    if (given != options.init_refs.end())
        return string_to_object(given->second.c_str());
    if (!options.default_init_ref.empty()) {
        const std::string& base = options.default_init_ref;
        const char separator = starts_with_nocase(base.c_str(), "corbaname:") ? '#' : '/';
        return string_to_object((base + separator + name).c_str());
    }
    throw InvalidName();
}

ORB::ObjectIdList* ORB::list_initial_services()
{
    check_running();
    const std::vector<std::string> names = core().initial_reference_names();
    ObjectIdList* list = new ObjectIdList(static_cast<ULong>(names.size()));
    list->length(static_cast<ULong>(names.size()));
    for (ULong i = 0; i < names.size(); ++i)
        (*list)[i] = names[i].c_str();
    return list;
}

void ORB::register_initial_reference(const char* identifier, Object_ptr obj)
{
    check_running();
    if (identifier == nullptr || *identifier == '\0' || std::strcmp(identifier, "RootPOA") == 0)
        throw InvalidName();
    if (obj == nullptr)
        throw BAD_PARAM(0x4f4d0018, COMPLETED_NO);
    Object_var taken = core().registered_reference(identifier);
    if (taken.in() != nullptr)
        throw InvalidName();
    core().register_initial_reference(identifier, obj);
}

Boolean ORB::work_pending()
{
    check_running();
    return false;
}

void ORB::perform_work()
{
    check_running();
    // The ORB's own threads serve requests; the caller only yields.
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

void ORB::run()
{
    core().wait_for_shutdown();
    core().complete_shutdown(YV_ORB::CallContext::current() == nullptr);
}

void ORB::shutdown(Boolean wait_for_completion)
{
    if (wait_for_completion && YV_ORB::CallContext::current() != nullptr)
        throw BAD_INV_ORDER(minor_in_request, COMPLETED_NO);
    core().shutdown();
    if (wait_for_completion)
        core().complete_shutdown(true);
}

void ORB::destroy()
{
    if (YV_ORB::CallContext::current() != nullptr)
        throw BAD_INV_ORDER(minor_in_request, COMPLETED_NO);
    core().shutdown();
    core().complete_shutdown(true);
    core().reset();
}

ORB_ptr ORB_init(int& argc, char** argv, const char*)
{
    YV_ORB::ORBOptions options;
    options.take(argc, argv);
    core().initialize(options);
    return ORB::_yv_instance();
}

ValueFactory ORB::register_value_factory(const char* id, ValueFactory factory)
{
    if (id == nullptr || factory == nullptr)
        throw BAD_PARAM(0, COMPLETED_NO);
    return YV_Cxx::ValueFactoryRegistry::instance().add(id, factory);
}

void ORB::unregister_value_factory(const char* id)
{
    if (id == nullptr || !YV_Cxx::ValueFactoryRegistry::instance().remove(id))
        throw BAD_PARAM(0, COMPLETED_NO);
}

ValueFactory ORB::lookup_value_factory(const char* id)
{
    if (id == nullptr)
        throw BAD_PARAM(0, COMPLETED_NO);
    return YV_Cxx::ValueFactoryRegistry::instance().find(id);
}

} // namespace CORBA
