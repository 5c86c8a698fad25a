// Writes the CDR vectors of the runtime's type code and any tests, as
// omniORB encodes them: one line per vector, "<name> <le|be> <hex octets>",
// each written from offset 0 of a fresh memory stream (GIOP 1.2, wide
// characters in UTF-16). Padding octets are unspecified in CDR: omniORB
// leaves some of those inside type codes as they were in memory, so the
// tests compare everything but padding. Built only where omniORB's
// development files are installed; its output is checked in as
// tests/runtime/data/cdr_vectors.txt.
#include "vectors.hh"

#include <omniORB4/CORBA.h>
#include <omniORB4/codeSets.h>

#include <cstdio>
#include <functional>

namespace {

void dump(const char* name, bool little, const std::function<void(cdrMemoryStream&)>& write)
{
    cdrMemoryStream s(0, true);
    s.setByteSwapFlag(little);
    GIOP::Version v = {1, 2};
    s.TCS_C(omni::omniCodeSet::getTCS_C(omni::omniCodeSet::ID_8859_1, v));
    s.TCS_W(omni::omniCodeSet::getTCS_W(omni::omniCodeSet::ID_UTF_16, v));
    write(s);
    std::printf("%s %s ", name, little ? "le" : "be");
    const unsigned char* p = static_cast<const unsigned char*>(s.bufPtr());
    for (CORBA::ULong i = 0; i < s.bufSize(); ++i)
        std::printf("%02x", p[i]);
    std::printf("\n");
}

void type_code(const char* name, bool little, CORBA::TypeCode_ptr tc)
{
    dump(name, little, [tc](cdrMemoryStream& s) { CORBA::TypeCode::marshalTypeCode(tc, s); });
}

void any(const char* name, bool little, const CORBA::Any& a)
{
    dump(name, little, [&a](cdrMemoryStream& s) { a >>= s; });
}

V::Point point(CORBA::Short x, CORBA::Double y)
{
    V::Point p;
    p.x = x;
    p.y = y;
    return p;
}

void vectors(bool little)
{
    type_code("tc_node", little, V::_tc_Node);
    type_code("tc_pair", little, V::_tc_Pair);
    type_code("tc_u", little, V::_tc_U);
    type_code("tc_kinds", little, V::_tc_Kinds);
    type_code("tc_tree", little, V::_tc_Tree);

    CORBA::Any a;
    a <<= point(1, 2.5);
    any("any_point", little, a);

    V::U u;
    u.o(9);
    u._d(7);
    a <<= u;
    any("any_u_default", little, a);
    u.p(point(-2, 0.25));
    a <<= u;
    any("any_u_point", little, a);

    V::LongSeqSeq ss;
    ss.length(2);
    ss[0].length(2);
    ss[0][0] = 1;
    ss[0][1] = 2;
    ss[1].length(1);
    ss[1][0] = 3;
    a <<= ss;
    any("any_seqseq", little, a);

    V::Wide w;
    w.w = CORBA::wstring_dup(L"h\u00e9\u20ac");
    w.c = L'\u03a9';
    a <<= w;
    any("any_wide", little, a);
    a <<= CORBA::Any::from_wstring(L"x\u00ff", 0);
    any("any_wstring", little, a);

    V::Node n;
    n.value = 1;
    n.children.length(2);
    n.children[0].value = 2;
    n.children[1].value = 3;
    n.children[1].children.length(1);
    n.children[1].children[0].value = 4;
    a <<= n;
    any("any_node", little, a);

    V::Tree t;
    t.label = CORBA::string_dup("root");
    t.trees.length(1);
    t.trees[0].label = CORBA::string_dup("leaf");
    a <<= t;
    any("any_tree", little, a);

    a <<= V::Refused("no");
    any("any_refused", little, a);

    a <<= V::_tc_Node;
    any("any_typecode", little, a);

    CORBA::Any inner;
    inner <<= CORBA::Long(5);
    CORBA::Any outer;
    outer <<= inner;
    any("any_any", little, outer);

    // Adopted by the any: a copy would lose the fixed member's digits.
    V::Kinds* kp = new V::Kinds;
    V::Kinds& k = *kp;
    k.s = -1;
    k.us = 2;
    k.l = -3;
    k.ul = 4;
    k.ll = -5;
    k.ull = 6;
    k.f = 7.5f;
    k.d = -8.25;
    k.b = true;
    k.c = 'c';
    k.o = 0xfe;
    k.a <<= CORBA::Any::from_string("in an any", 0);
    k.t = CORBA::TypeCode::_duplicate(V::_tc_Point);
    k.obj = CORBA::Object::_nil();
    k.acc = V::Account::_nil();
    k.str = CORBA::string_dup("str");
    k.bounded = CORBA::string_dup("bounded");
    k.col = V::green;
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 3; ++j)
            k.g[i][j] = i * 10 + j;
    k.pa = point(3, 1.5);
    k.bc.gb("hi");
    k.bc._d(V::blue);
    k.money = CORBA::Fixed("123.45");
    k.money.PR_setLimits(5, 2);
    k.few.length(2);
    k.few[0] = point(1, 1.0);
    k.few[1] = point(2, 2.0);
    a <<= kp;
    any("any_kinds", little, a);
}

} // namespace

int main(int argc, char** argv)
{
    CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
    std::printf("# CDR vectors written by omniORB (tests/runtime/vectors/make_vectors.cpp over\n"
                "# vectors.idl; GIOP 1.2, wide characters in UTF-16): \"<name> <le|be> <hex>\",\n"
                "# each from offset 0 of its stream; padding octets as omniORB left them.\n"
                "# Made with: build/bin/make_vectors > tests/runtime/data/cdr_vectors.txt\n");
    vectors(true);
    vectors(false);
    orb->destroy();
    return 0;
}
