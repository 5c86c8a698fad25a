#include "ExchangeServant.h"

#include "ObvSamples.h"

#include <string>

namespace obv {

namespace {

template <class T>
T* shared(T* v)
{
    CORBA::add_ref(v);
    return v;
}

} // namespace

ExchangeServant::ExchangeServant(PortableServer::POA_ptr poa) : m_poa(PortableServer::POA::_duplicate(poa)) {}

ExchangeServant::~ExchangeServant()
{
    for (auto& n : m_received)
        cut(n.in());
    // A value goes with its last reference (omniORB checks the count).
    for (TallyServant* t : m_tallies)
        static_cast<CORBA::ValueBase*>(t)->_remove_ref();
}

Obv::Account* ExchangeServant::echo_account(Obv::Account* a) { return shared(a); }

Obv::Node* ExchangeServant::echo_node(Obv::Node* n)
{
    if (n != nullptr) {
        std::lock_guard<std::mutex> hold(m_lock);
        m_received.push_back(shared(n));
    }
    return shared(n);
}

CORBA::Boolean ExchangeServant::same(Obv::Node* a, Obv::Node* b) { return a != nullptr && a == b; }

Obv::Base* ExchangeServant::echo_base(Obv::Base* b) { return shared(b); }

Obv::Base* ExchangeServant::make_extended()
{
    Obv::Extended_var e = new OBV_Obv::Extended;
    e->name("ext");
    e->level(3);
    e->note("cut off");
    return e._retn();
}

Obv::Label* ExchangeServant::echo_label(Obv::Label* l) { return shared(l); }

Obv::PointBox* ExchangeServant::echo_point(Obv::PointBox* p) { return shared(p); }

CORBA::Any* ExchangeServant::echo_any(const CORBA::Any& a)
{
    Obv::Node* n = nullptr;
    if (!(a >>= n) || !pair_problems(n).empty())
        throw CORBA::BAD_PARAM(0x49560003, CORBA::COMPLETED_NO);
    return new CORBA::Any(a);
}

Obv::Counter_ptr ExchangeServant::make_counter(CORBA::Long start)
{
    TallyServant* tally = new TallyServant(start);
    {
        std::lock_guard<std::mutex> hold(m_lock);
        m_tallies.push_back(tally);
    }
    PortableServer::ObjectId_var id = m_poa->activate_object(tally);
    CORBA::Object_var object = m_poa->id_to_reference(id.in());
    return Obv::Counter::_narrow(object.in());
}

Obv::Named_ptr ExchangeServant::echo_named(Obv::Named_ptr n, CORBA::String_out seen)
{
    std::string kind = "nil";
    if (!CORBA::is_nil(n)) {
        CORBA::Object_var object = n->_to_object();
        kind = CORBA::is_nil(object.in()) ? "value " : "object ";
        CORBA::String_var name = n->name();
        kind += name.in();
    }
    seen = CORBA::string_dup(kind.c_str());
    return Obv::Named::_duplicate(n);
}

char* ExchangeServant::name() { return CORBA::string_dup("exchange"); }

} // namespace obv
