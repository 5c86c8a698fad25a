// The server side of InteropObv.idl: echoes values, compares them, checks
// the value inside an any and serves Tallies as objects.
#ifndef INTEROP_EXCHANGE_SERVANT_H
#define INTEROP_EXCHANGE_SERVANT_H

#include "ObvOrb.h"
#include "TallyServant.h"

#include <mutex>
#include <vector>

namespace obv {

class ExchangeServant : public virtual POA_Obv::Exchange {
public:
    explicit ExchangeServant(PortableServer::POA_ptr poa);
    // Cuts the cycles of the graphs it received; releases the Tallies.
    ~ExchangeServant() override;

    Obv::Account* echo_account(Obv::Account* a) override;
    Obv::Node* echo_node(Obv::Node* n) override;
    CORBA::Boolean same(Obv::Node* a, Obv::Node* b) override;
    Obv::Base* echo_base(Obv::Base* b) override;
    Obv::Base* make_extended() override;
    Obv::Label* echo_label(Obv::Label* l) override;
    Obv::PointBox* echo_point(Obv::PointBox* p) override;
    CORBA::Any* echo_any(const CORBA::Any& a) override;
    Obv::Counter_ptr make_counter(CORBA::Long start) override;
    Obv::Named_ptr echo_named(Obv::Named_ptr n, CORBA::String_out seen) override;
    char* name() override;

private:
    PortableServer::POA_var m_poa;
    std::mutex m_lock;
    std::vector<Obv::Node_var> m_received;
    // Each holds its value's first reference, dropped when this ends.
    std::vector<TallyServant*> m_tallies;
};

} // namespace obv

#endif
