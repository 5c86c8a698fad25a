// A servant of Mapping.idl's Run::Peer that answers with its id, for the
// tests that pass Peer references around.
#pragma once

#include "MappingS.hh"

class PeerServant : public virtual POA_Run::Peer {
public:
    explicit PeerServant(CORBA::Long id) : m_id(id) {}
    CORBA::Long id() override { return m_id; }

private:
    CORBA::Long m_id;
};
