// Writes the CDR test vectors of tests/runtime/data/cdr_stream_vectors.txt with
// omniORB's own encoder (cdrMemoryStream), so that the runtime's encoder and
// decoder are checked against a peer ORB's octets.
//
//   make_cdr_vectors > tests/runtime/data/cdr_stream_vectors.txt
//
// (built as build/bin/make_cdr_vectors when libomniorb4-dev is installed).
// Each scenario is written in both byte orders, into zeroed memory so that
// padding octets are zero (omniORB leaves them as it finds them). Lines:
//   write <scenario>.<be|le> <hex octets>        what omniORB wrote
//   read <scenario> <hex octets> = <result>      what omniORB read from the
//                                                octets given (big-endian)
// The values of each scenario are listed in CdrVectors_test.cpp, which
// writes and reads the same values.
#include <omniORB4/CORBA.h>
#include <omniORB4/codeSets.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

GIOP::Version giop12 = {1, 2};

std::string hex(const void* data, std::size_t n)
{
    std::string s;
    const unsigned char* p = static_cast<const unsigned char*>(data);
    char b[4];
    for (std::size_t i = 0; i < n; ++i) {
        std::snprintf(b, sizeof b, i == 0 ? "%02x" : " %02x", p[i]);
        s += b;
    }
    return s;
}

void emit(const char* scenario, bool little, cdrMemoryStream& s)
{
    std::printf("write %s.%s %s\n", scenario, little ? "le" : "be", hex(s.bufPtr(), s.bufSize()).c_str());
}

void prepare(cdrMemoryStream& s, bool little)
{
    s.setByteSwapFlag(little);
    s.TCS_C(omni::omniCodeSet::getTCS_C(omni::omniCodeSet::ID_8859_1, giop12));
    s.TCS_W(omni::omniCodeSet::getTCS_W(omni::omniCodeSet::ID_UTF_16, giop12));
}

void primitives(cdrMemoryStream& s)
{
    s.marshalOctet(0xab);
    s.marshalBoolean(true);
    s.marshalBoolean(false);
    s.marshalChar('z');
    CORBA::Short(-2) >>= s;
    CORBA::UShort(0xfedc) >>= s;
    CORBA::Long(-123456) >>= s;
    CORBA::ULong(0xdeadbeef) >>= s;
    s.marshalOctet(1);
    CORBA::LongLong(-1234567890123LL) >>= s;
    CORBA::ULongLong(0xfedcba9876543210ULL) >>= s;
    CORBA::Float(1.5f) >>= s;
    CORBA::Double(-0.1) >>= s;
    s.marshalOctet(2);
    CORBA::Float(-3.25e10f) >>= s;
    s.marshalOctet(3);
    CORBA::Double(6.02214076e23) >>= s;
}

void strings(cdrMemoryStream& s)
{
    s.marshalString("");
    s.marshalString("hello");
    s.marshalOctet(9);
    s.marshalString("Gr\xfc\xdf" "e");
}

void wide(cdrMemoryStream& s)
{
    s.marshalWChar(L'A');
    s.marshalWChar(0xe9);
    s.marshalWChar(0x20ac);
    s.marshalOctet(7);
    s.marshalWString(L"");
}

void fixed(cdrMemoryStream& s)
{
    CORBA::Fixed a("123.45");
    a.PR_setLimits(5, 2);
    a >>= s;
    CORBA::Fixed b("-0.01");
    b.PR_setLimits(5, 2);
    b >>= s;
    CORBA::Fixed c("-12.5");
    c.PR_setLimits(4, 2);
    c >>= s;
    CORBA::Fixed d("9999999999999999999999999999999");
    d.PR_setLimits(31, 0);
    d >>= s;
    CORBA::Fixed e("0.0000000000000000000000000000001");
    e.PR_setLimits(31, 31);
    e >>= s;
    CORBA::Fixed f("7");
    f.PR_setLimits(1, 0);
    f >>= s;
}

void sequences(cdrMemoryStream& s)
{
    // sequence<sequence<long>> {{1, 2}, {}, {3}}
    CORBA::ULong(3) >>= s;
    CORBA::LongSeq a;
    a.length(2);
    a[0] = 1;
    a[1] = 2;
    a >>= s;
    CORBA::LongSeq none;
    none >>= s;
    CORBA::LongSeq c;
    c.length(1);
    c[0] = 3;
    c >>= s;
    CORBA::StringSeq names;
    names.length(2);
    names[0] = CORBA::string_dup("a");
    names[1] = CORBA::string_dup("bc");
    names >>= s;
    CORBA::OctetSeq octets;
    octets.length(3);
    octets[0] = 1;
    octets[1] = 0;
    octets[2] = 255;
    octets >>= s;
    CORBA::BooleanSeq flags;
    flags.length(2);
    flags[0] = true;
    flags[1] = false;
    flags >>= s;
    CORBA::DoubleSeq values;
    values.length(2);
    values[0] = 0.5;
    values[1] = -2.0;
    values >>= s;
    CORBA::ShortSeq shorts;
    shorts.length(3);
    shorts[0] = 1;
    shorts[1] = -1;
    shorts[2] = 300;
    shorts >>= s;
    CORBA::ULongLongSeq big;
    big.length(1);
    big[0] = 1;
    big >>= s;
}

void arrays(cdrMemoryStream& s)
{
    // long[2][3], then octet, then short[3], then string[2]
    for (int i = 0; i < 6; ++i)
        CORBA::Long(i - 2) >>= s;
    s.marshalOctet(5);
    for (int i = 0; i < 3; ++i)
        CORBA::Short(100 * i) >>= s;
    s.marshalString("x");
    s.marshalString("yz");
}

// An encapsulation as CDR defines it: its own byte-order octet first, and
// alignment counted from that octet.
void encapsulation(cdrMemoryStream& s, bool little)
{
    cdrMemoryStream inner(0, true);
    prepare(inner, little);
    inner.marshalBoolean(little);
    CORBA::ULong(42) >>= inner;
    inner.marshalString("x");
    cdrMemoryStream innermost(0, true);
    prepare(innermost, little);
    innermost.marshalBoolean(little);
    CORBA::Double(2.5) >>= innermost;
    CORBA::ULong(innermost.bufSize()) >>= inner;
    inner.put_octet_array(static_cast<const CORBA::Octet*>(innermost.bufPtr()), static_cast<int>(innermost.bufSize()));
    CORBA::Short(-7) >>= inner;

    s.marshalOctet(7);
    CORBA::ULong(inner.bufSize()) >>= s;
    s.put_octet_array(static_cast<const CORBA::Octet*>(inner.bufPtr()), static_cast<int>(inner.bufSize()));
    CORBA::Long(-1) >>= s;
}

void both(const char* scenario, void (*write)(cdrMemoryStream&))
{
    for (int little = 0; little < 2; ++little) {
        cdrMemoryStream s(0, true);
        prepare(s, little);
        write(s);
        emit(scenario, little, s);
    }
}

// What omniORB reads from wide-character octets (big-endian stream).
void read_wide(const char* name, std::vector<unsigned char> octets, bool string)
{
    cdrMemoryStream in(octets.data(), octets.size());
    prepare(in, false);
    std::string result;
    try {
        if (string) {
            CORBA::WChar* w = in.unmarshalWString();
            for (CORBA::WChar* p = w; *p != 0; ++p) {
                char b[16];
                std::snprintf(b, sizeof b, "%sU+%04X", result.empty() ? "" : " ", static_cast<unsigned>(*p));
                result += b;
            }
            CORBA::wstring_free(w);
            if (result.empty())
                result = "empty";
        } else {
            char b[16];
            std::snprintf(b, sizeof b, "U+%04X", static_cast<unsigned>(in.unmarshalWChar()));
            result = b;
        }
    } catch (const CORBA::SystemException& e) {
        result = e._name();
    }
    std::printf("read %s %s = %s\n", name, hex(octets.data(), octets.size()).c_str(), result.c_str());
}

} // namespace

int main(int argc, char** argv)
{
    CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
    std::printf("# CDR octets written and read by omniORB %s (cdrMemoryStream, GIOP 1.2,\n", omniORB::versionString());
    std::printf("# code sets ISO 8859-1 and UTF-16). Made by tests/runtime/cdr_vectors/make_cdr_vectors;\n");
    std::printf("# regenerate with: build/bin/make_cdr_vectors > tests/runtime/data/cdr_stream_vectors.txt\n");
    both("primitives", primitives);
    both("strings", strings);
    both("wide", wide);
    both("fixed", fixed);
    both("sequences", sequences);
    both("arrays", arrays);
    for (int little = 0; little < 2; ++little) {
        cdrMemoryStream s(0, true);
        prepare(s, little);
        encapsulation(s, little);
        emit("encapsulation", little, s);
    }
    // The wide strings this runtime writes (big-endian, no byte-order mark),
    // and the forms other writers use.
    read_wide("wstring.be", {0, 0, 0, 6, 0, 0x41, 0, 0xe9, 0x20, 0xac}, true);
    read_wide("wstring.bom-be", {0, 0, 0, 4, 0xfe, 0xff, 0, 0x41}, true);
    read_wide("wstring.bom-le", {0, 0, 0, 6, 0xff, 0xfe, 0x41, 0, 0xac, 0x20}, true);
    read_wide("wstring.pair", {0, 0, 0, 4, 0xd8, 0x3d, 0xde, 0x00}, true);
    read_wide("wstring.empty", {0, 0, 0, 0}, true);
    read_wide("wchar.be", {2, 0x20, 0xac}, false);
    read_wide("wchar.bom-le", {4, 0xff, 0xfe, 0xac, 0x20}, false);
    read_wide("wchar.pair", {4, 0xd8, 0x3d, 0xde, 0x00}, false);
    orb->destroy();
    return 0;
}
