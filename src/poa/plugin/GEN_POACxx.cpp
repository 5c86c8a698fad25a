#include "GEN_POACxx.h"

#include "CPPResolver.h"
#include "IDL_GlobalData.h"
#include "CxxVisitorFactories.h"
#include "POA_VisitorFactories.h"
#include "Visitor.h"

#include <iostream>
#include <memory>

char GEN_POACxx::_narrow_tag = 0;

GEN_POACxx::GEN_POACxx()
    : m_client_header_ext(m_standard_header_ext), m_poa_interfaces(1), m_orb_s_hh(0), m_coloc_poa(0), m_tie(0),
      m_hash_max(-1)
{
}

// The bases start from their defaults: the base generator's factory finder
// owns its factories and cannot be shared between two generators.
GEN_POACxx::GEN_POACxx(const GEN_POACxx& other)
    : CodeGenerator(), GEN_CPlusPlus(), m_client_header_ext(other.m_client_header_ext),
      m_exclude_patterns(other.m_exclude_patterns), m_poa_interfaces(other.m_poa_interfaces),
      m_orb_s_hh(other.m_orb_s_hh), m_coloc_poa(other.m_coloc_poa), m_tie(other.m_tie), m_hash_max(other.m_hash_max)
{
}

GEN_POACxx::~GEN_POACxx() { m_exclude_patterns.clear(); }

const char* GEN_POACxx::plugin_name() const { return "POACxx"; }

void* GEN_POACxx::narrow(char* tag)
{
    if (tag == &_narrow_tag)
        return this;
    return GEN_CPlusPlus::narrow(tag);
}

GEN_POACxx* GEN_POACxx::narrow_from_gen(CodeGenerator* gen)
{
    return gen ? static_cast<GEN_POACxx*>(gen->narrow(&_narrow_tag)) : nullptr;
}

void GEN_POACxx::init_factory_finder()
{
    add_client_declaration_factories();
    // The finder takes each factory over and deletes it when it is done.
    VisitorFF* ff = visitorFF();
    ff->add_factory(VIS_POA_HH_Factory::FFKey, new VIS_POA_HH_Factory);
    ff->add_factory(VIS_POA_TIE_HH_Factory::FFKey, new VIS_POA_TIE_HH_Factory);
    ff->add_factory(VIS_POA_Impl_Factory::FFKey, new VIS_POA_Impl_Factory);
    ff->add_factory(VIS_HH_ABC_OperationArg_Factory::FFKey, new VIS_HH_ABC_OperationArg_Factory);
    ff->add_factory(VIS_HH_ABC_OpReturn_Factory::FFKey, new VIS_HH_ABC_OpReturn_Factory);
}

void GEN_POACxx::generate(IDL_GlobalData* data, const char* options)
{
    if (!data)
        return;
    set_global_data(data);
    init_factory_finder();

    // Names are settled over the whole tree before any text is written.
    auto resolver = std::make_unique<CPPResolver>(this);
    resolver->set_clash_prefix("_cxx_");
    resolver->resolve_clashes(data->root());
    set_name_resolver(resolver.get());

    // The option text has the last word over the configuration.
    read_config_file();
    set_options(options);

    try {
        generate_hh();
        generate_impl();
    } catch (Visitor::VisitorException& e) {
        // The file step has reported it already; the run ends here, without
        // a failure indication to the caller.
        e.output_exception(std::cerr);
    }

    set_name_resolver(nullptr);
}
