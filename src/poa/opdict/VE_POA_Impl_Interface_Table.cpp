// VE_POA_Impl_Interface: the lookup function _lookup_dispatcher and its
// static table, filled from an operation dictionary and printed slot by
// slot in the dictionary's layout.
#include "VE_POA_Impl_Interface.h"

#include "AST_Attribute.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "GEN_POACxx.h"
#include "POA_SkeletonNames.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"
#include "YV_hash_string.h"
#include "idl_msg_header.h"

#include <iostream>
#include <memory>
#include <new>
#include <vector>

namespace {

const char LOOKUP_HEAD[] = "PortableServer::ServantBase::_YV_DispatcherPtr\n$skeleton$::_lookup_dispatcher(\n";
const char LOOKUP_PARAMS[] = "const char* operation\n";

} // namespace

void VE_POA_Impl_Interface::outputEmptyDispatch(AST_Interface* i)
{
    CxxPrinter p = printer();
    definition_head(p, LOOKUP_HEAD, LOOKUP_PARAMS, {{"skeleton", names().scoped(i)}});
    {
        auto body = p.deeper();
        p.print("return 0;\n");
    }
    p.raw("}\n\n");
}

void VE_POA_Impl_Interface::outputHashDispatch(AST_Interface* i)
{
    CxxPrinter p = printer();
    definition_head(p, LOOKUP_HEAD, LOOKUP_PARAMS, {{"skeleton", names().scoped(i)}});
    {
        auto body = p.deeper();
        const int slots = output_static_hashtable(i);
        p.print("\nPortableServer::ServantBase::_YV_DispatcherPtr dispatcher =\n");
        {
            auto value = p.deeper();
            p.print("YV_Cxx_StaticDispatchHashTable::lookup(\n");
            {
                auto args = p.deeper();
                p.print("operation,\n_raw_table,\n$slots$\n", {{"slots", CxxPrinter::Num(slots)}});
            }
            p.print(");\n");
        }
        p.print("return dispatcher;\n");
    }
    p.raw("}\n\n");
}

int VE_POA_Impl_Interface::output_static_hashtable(AST_Interface* i)
{
    long counter = 3;  // the three standard entries
    std::vector<AST_Interface*> all;
    find_all_interfaces(i, all, counter);

    unsigned long bits = table_bits(i, counter);
    std::unique_ptr<IDL_OpDict> dict;
    try {
        dict = std::make_unique<IDL_OpDict>(YV_hash_string, bits);
    } catch (const std::bad_alloc&) {
        idl_msg_header(i->line(), i->column(), i->file_name());
        std::cerr << "POA Error. Dispatch table size 2^" << bits << " cannot be allocated; using the automatic size." << std::endl;
        bits = IDL_OpDict::auto_bits(static_cast<unsigned long>(counter));
        dict = std::make_unique<IDL_OpDict>(YV_hash_string, bits);
    }
    const int slots = static_cast<int>(dict->slot_count());

    dict->Insert("_interface", "PortableServer::ServantBase::_get_interface_dispatch");
    dict->Insert("_is_a", "PortableServer::ServantBase::_is_a_dispatch");
    dict->Insert("_non_existent", "PortableServer::ServantBase::_non_existent_dispatch");
    for (AST_Interface* each : all)
        insert_hash_entries(each, *dict);

    for (int s = 0; s < slots; ++s) {
        if (dict->entries()[s].used)
            output_entry(&dict->entries()[s], s, 0);
    }

    // The slot array, six elements to a line; the blank that ends a full
    // line and the one after "=" are fixed.
    CxxPrinter p = printer();
    p.print("\nstatic YV_Cxx_HashEntry *_raw_table[] = \n");
    {
        auto array = p.block("{\n", "};\n");
        for (int s = 0; s < slots; ++s) {
            if (dict->entries()[s].used)
                p.print("&_entry_$slot$_0", {{"slot", CxxPrinter::Num(s)}});
            else
                p.print("0");
            if (s + 1 == slots)
                continue;
            if (s % 6 == 5)
                p.print(", \n");
            else
                p.print(", ");
        }
        p.print("\n");
    }
    p.print("\n");
    return slots;
}

unsigned long VE_POA_Impl_Interface::table_bits(AST_Interface* i, long counter) const
{
    const unsigned long automatic = IDL_OpDict::auto_bits(static_cast<unsigned long>(counter < 0 ? 0 : counter));
    const int requested = GEN_POACxx::narrow_from_gen(generator())->hash_max();
    // Any negative value means the automatic size, -1 (the value of a -p
    // that was not given) among them.
    if (requested < 0)
        return automatic;
    if (static_cast<unsigned long>(requested) > IDL_OpDict::max_bits) {
        idl_msg_header(i->line(), i->column(), i->file_name());
        std::cerr << "POA Error. Dispatch table size 2^" << requested << " cannot be built; using the automatic size." << std::endl;
        return automatic;
    }
    return static_cast<unsigned long>(requested);
}

void VE_POA_Impl_Interface::insert_hash_entries(AST_Interface* i, IDL_OpDict& dict)
{
    // Insert's answer is not needed: when a key is already held (a base
    // reached along two paths, a name equal to a standard entry), the entry
    // inserted first stays.
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(i, {AST_Decl::NT_op, AST_Decl::NT_attr})) {
        if (AST_Operation* op = AST_Operation::narrow_from_decl(d)) {
            dict.Insert(handler_operation_key(op).c_str(), dispatch_function_name(op, "").c_str());
            continue;
        }
        AST_Attribute* a = AST_Attribute::narrow_from_decl(d);
        const std::string id = a->local_name()->str();
        dict.Insert(("_get_" + id).c_str(), dispatch_function_name(a, "_get_").c_str());
        if (!a->readonly())
            dict.Insert(("_set_" + id).c_str(), dispatch_function_name(a, "_set_").c_str());
    }
}

std::string VE_POA_Impl_Interface::handler_operation_key(AST_Operation* op)
{
    const std::string id = op->local_name()->str();
    if (!ami_handler_on || !ami_target)
        return id;
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(ami_target, {AST_Decl::NT_attr})) {
        AST_Attribute* a = AST_Attribute::narrow_from_decl(d);
        const std::string attr = a->local_name()->str();
        bool reply = id == "get_" + attr + "_complete" || id == "get_" + attr + "_excep";
        if (!a->readonly())
            reply = reply || id == "set_" + attr + "_complete" || id == "set_" + attr + "_excep";
        if (reply)
            return "_" + id;
    }
    return id;
}

// The blank after "=" that ends the first line is fixed.
void VE_POA_Impl_Interface::output_entry(const IDL_OpDict::HashEntry* e, int slot, int depth)
{
    if (e->next)
        output_entry(e->next.get(), slot, depth + 1);
    CxxPrinter p = printer();
    const CxxPrinter::Num s(slot);
    auto entry = p.block("static YV_Cxx_HashEntry _entry_$slot$_$depth$ = \n{\n", "};\n",
                         {{"slot", s}, {"depth", CxxPrinter::Num(depth)}});
    p.print("\"$key$\",\n$value$,\n", {{"key", e->key.c_str()}, {"value", e->value.c_str()}});
    if (e->next)
        p.print("&_entry_$slot$_$depth$\n", {{"slot", s}, {"depth", CxxPrinter::Num(depth + 1)}});
    else
        p.print("0\n");
}
