#include "ExchangeServant.h"

#include "ObvSamples.h"

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

} // namespace obv
