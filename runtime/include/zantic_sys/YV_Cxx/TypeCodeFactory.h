// Type codes made at run time: the work behind the ORB's create_*_tc
// operations. The ORB's templates turn a member sequence of any of the
// standard shapes into a list of TypeCodeFactory::Member and call make().
//
// Checks (standard minor codes): BAD_PARAM 15 a name that is not an IDL
// identifier, 16 a repository id without a format prefix, 17 a member name
// that is invalid or used twice, 18 a union label used twice, 19 a label of
// another type than the discriminator, 20 a discriminator type a union may
// not have; BAD_TYPECODE 2 a member type that members may not have (null,
// void, exception).
#ifndef YV_RT_YV_CXX_TYPECODEFACTORY_H
#define YV_RT_YV_CXX_TYPECODEFACTORY_H

#include "../CORBA/ORB.h"
#include "../CORBA/TypeCode.h"

#include <vector>

namespace CORBA {
class Any;
}

namespace YV_Cxx {

class TypeCodeFactory {
public:
    struct Member {
        const char* name;
        CORBA::TypeCode_ptr type;
        // Unions: the label (the octet 0 for the default member).
        const CORBA::Any* label;
        CORBA::Short visibility;
    };

    // A struct, exception, union (`content` the discriminator), enum
    // (members without types) or value type (`content` the concrete base,
    // may be nil). A type code made by create_recursive_tc for `id` that
    // the members lead to becomes the new type code.
    static CORBA::TypeCode_ptr make(CORBA::TCKind kind, const char* id, const char* name,
                                    CORBA::TypeCode_ptr content, CORBA::Short modifier,
                                    const std::vector<Member>& members);
    // objref, native, abstract and local interfaces.
    static CORBA::TypeCode_ptr make_interface(CORBA::TCKind kind, const char* id, const char* name);
    // alias, value box.
    static CORBA::TypeCode_ptr make_alias(CORBA::TCKind kind, const char* id, const char* name,
                                          CORBA::TypeCode_ptr content);
    // string, wstring, sequence, array (`element` nil for strings).
    static CORBA::TypeCode_ptr make_bounded(CORBA::TCKind kind, CORBA::ULong bound, CORBA::TypeCode_ptr element);
    static CORBA::TypeCode_ptr make_fixed(CORBA::UShort digits, CORBA::Short scale);
    static CORBA::TypeCode_ptr make_recursive(const char* id);
};

// The member's name as a const char* (a String_var or a plain string).
template <class S>
const char* member_text(const S& s)
{
    return static_cast<const char*>(s);
}

} // namespace YV_Cxx

namespace CORBA {

template <class Members>
TypeCode_ptr ORB::create_struct_tc(const char* id, const char* name, const Members& members)
{
    std::vector<YV_Cxx::TypeCodeFactory::Member> list;
    for (ULong i = 0; i < members.length(); ++i)
        list.push_back({YV_Cxx::member_text(members[i].name), members[i].type.in(), nullptr, 0});
    return YV_Cxx::TypeCodeFactory::make(tk_struct, id, name, nullptr, 0, list);
}

template <class Members>
TypeCode_ptr ORB::create_exception_tc(const char* id, const char* name, const Members& members)
{
    std::vector<YV_Cxx::TypeCodeFactory::Member> list;
    for (ULong i = 0; i < members.length(); ++i)
        list.push_back({YV_Cxx::member_text(members[i].name), members[i].type.in(), nullptr, 0});
    return YV_Cxx::TypeCodeFactory::make(tk_except, id, name, nullptr, 0, list);
}

template <class Members>
TypeCode_ptr ORB::create_union_tc(const char* id, const char* name, TypeCode_ptr discriminator_type,
                                  const Members& members)
{
    std::vector<YV_Cxx::TypeCodeFactory::Member> list;
    for (ULong i = 0; i < members.length(); ++i)
        list.push_back({YV_Cxx::member_text(members[i].name), members[i].type.in(), &members[i].label, 0});
    return YV_Cxx::TypeCodeFactory::make(tk_union, id, name, discriminator_type, 0, list);
}

template <class Members>
TypeCode_ptr ORB::create_enum_tc(const char* id, const char* name, const Members& members)
{
    std::vector<YV_Cxx::TypeCodeFactory::Member> list;
    for (ULong i = 0; i < members.length(); ++i)
        list.push_back({YV_Cxx::member_text(members[i]), nullptr, nullptr, 0});
    return YV_Cxx::TypeCodeFactory::make(tk_enum, id, name, nullptr, 0, list);
}

template <class Members>
TypeCode_ptr ORB::create_value_tc(const char* id, const char* name, ValueModifier type_modifier,
                                  TypeCode_ptr concrete_base, const Members& members)
{
    std::vector<YV_Cxx::TypeCodeFactory::Member> list;
    for (ULong i = 0; i < members.length(); ++i)
        list.push_back({YV_Cxx::member_text(members[i].name), members[i].type.in(), nullptr, members[i].access});
    return YV_Cxx::TypeCodeFactory::make(tk_value, id, name, concrete_base, type_modifier, list);
}

} // namespace CORBA

#endif
