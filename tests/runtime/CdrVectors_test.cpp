// The encoder and decoder against the octets omniORB writes and reads
// (data/cdr_stream_vectors.txt, made by cdr_vectors/make_cdr_vectors.cpp). Each
// scenario writes the values the generator wrote, in both byte orders, and
// must give the same octets; reading those octets must give the values back
// and use them up.
#include <zantic_sys/yvcxx.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

typedef std::vector<unsigned char> Octets;

struct Vectors {
    std::map<std::string, Octets> written;
    // name -> (octets, what omniORB read from them)
    std::map<std::string, std::pair<Octets, std::string>> read;
};

Octets parse_hex(std::istream& in)
{
    Octets v;
    std::string word;
    while (in >> word && word != "=")
        v.push_back(static_cast<unsigned char>(std::stoul(word, nullptr, 16)));
    return v;
}

const Vectors& vectors()
{
    static const Vectors v = [] {
        Vectors r;
        std::ifstream file(YV_TEST_DATA_DIR "/cdr_stream_vectors.txt");
        std::string line;
        while (std::getline(file, line)) {
            std::istringstream words(line);
            std::string kind, name;
            words >> kind >> name;
            if (kind == "write") {
                r.written[name] = parse_hex(words);
            } else if (kind == "read") {
                Octets octets = parse_hex(words);
                std::string result;
                std::getline(words >> std::ws, result);
                r.read[name] = {octets, result};
            }
        }
        return r;
    }();
    return v;
}

template <class T>
void put(YV_CDR::OutputStream& out, const T& v)
{
    YV_Cxx::Marshal<T>::write(out, v);
}
template <class T>
T get(YV_CDR::InputStream& in)
{
    T v;
    YV_Cxx::Marshal<T>::read(in, v);
    return v;
}

typedef YV_Cxx::UnboundedSequence<CORBA::Long> LongSeq;
typedef YV_Cxx::UnboundedSequence<CORBA::String_var> StringSeq;

template <class S>
S make_seq(std::initializer_list<typename S::value_type> values)
{
    S s;
    s.length(static_cast<CORBA::ULong>(values.size()));
    CORBA::ULong i = 0;
    for (const auto& v : values)
        s[i++] = v;
    return s;
}

struct Scenario {
    const char* name;
    void (*write)(YV_CDR::OutputStream&);
    void (*check)(YV_CDR::InputStream&);
};

const Scenario scenarios[] = {
    {"primitives",
     [](YV_CDR::OutputStream& out) {
         out.write_octet(0xab);
         out.write_boolean(true);
         out.write_boolean(false);
         out.write_char('z');
         out.write_short(-2);
         out.write_ushort(0xfedc);
         out.write_long(-123456);
         out.write_ulong(0xdeadbeef);
         out.write_octet(1);
         out.write_longlong(-1234567890123LL);
         out.write_ulonglong(0xfedcba9876543210ULL);
         out.write_float(1.5f);
         out.write_double(-0.1);
         out.write_octet(2);
         out.write_float(-3.25e10f);
         out.write_octet(3);
         out.write_double(6.02214076e23);
     },
     [](YV_CDR::InputStream& in) {
         EXPECT_EQ(in.read_octet(), 0xab);
         EXPECT_TRUE(in.read_boolean());
         EXPECT_FALSE(in.read_boolean());
         EXPECT_EQ(in.read_char(), 'z');
         EXPECT_EQ(in.read_short(), -2);
         EXPECT_EQ(in.read_ushort(), 0xfedc);
         EXPECT_EQ(in.read_long(), -123456);
         EXPECT_EQ(in.read_ulong(), 0xdeadbeefu);
         EXPECT_EQ(in.read_octet(), 1);
         EXPECT_EQ(in.read_longlong(), -1234567890123LL);
         EXPECT_EQ(in.read_ulonglong(), 0xfedcba9876543210ULL);
         EXPECT_EQ(in.read_float(), 1.5f);
         EXPECT_EQ(in.read_double(), -0.1);
         EXPECT_EQ(in.read_octet(), 2);
         EXPECT_EQ(in.read_float(), -3.25e10f);
         EXPECT_EQ(in.read_octet(), 3);
         EXPECT_EQ(in.read_double(), 6.02214076e23);
     }},
    {"strings",
     [](YV_CDR::OutputStream& out) {
         out.write_string("");
         out.write_string("hello");
         out.write_octet(9);
         out.write_string("Gr\xfc\xdf" "e");
     },
     [](YV_CDR::InputStream& in) {
         EXPECT_STREQ(CORBA::String_var(in.read_string()).in(), "");
         EXPECT_STREQ(CORBA::String_var(in.read_string()).in(), "hello");
         EXPECT_EQ(in.read_octet(), 9);
         EXPECT_STREQ(CORBA::String_var(in.read_string()).in(), "Gr\xfc\xdf" "e");
     }},
    {"wide",
     [](YV_CDR::OutputStream& out) {
         out.write_wchar(L'A');
         out.write_wchar(0xe9);
         out.write_wchar(0x20ac);
         out.write_octet(7);
         out.write_wstring(L"");
     },
     [](YV_CDR::InputStream& in) {
         EXPECT_EQ(in.read_wchar(), L'A');
         EXPECT_EQ(in.read_wchar(), 0xe9);
         EXPECT_EQ(in.read_wchar(), 0x20ac);
         EXPECT_EQ(in.read_octet(), 7);
         EXPECT_EQ(CORBA::WString_var(in.read_wstring())[0], 0);
     }},
    {"fixed",
     [](YV_CDR::OutputStream& out) {
         put(out, YV_Cxx::FixedT<5, 2>("123.45"));
         put(out, YV_Cxx::FixedT<5, 2>("-0.01"));
         put(out, YV_Cxx::FixedT<4, 2>("-12.5"));
         put(out, YV_Cxx::FixedT<31, 0>("9999999999999999999999999999999"));
         put(out, YV_Cxx::FixedT<31, 31>("0.0000000000000000000000000000001"));
         put(out, YV_Cxx::FixedT<1, 0>(7));
     },
     [](YV_CDR::InputStream& in) {
         EXPECT_EQ((get<YV_Cxx::FixedT<5, 2>>(in)), CORBA::Fixed("123.45"));
         EXPECT_EQ((get<YV_Cxx::FixedT<5, 2>>(in)), CORBA::Fixed("-0.01"));
         EXPECT_EQ((get<YV_Cxx::FixedT<4, 2>>(in)), CORBA::Fixed("-12.5"));
         EXPECT_EQ((get<YV_Cxx::FixedT<31, 0>>(in)), CORBA::Fixed("9999999999999999999999999999999"));
         EXPECT_EQ((get<YV_Cxx::FixedT<31, 31>>(in)), CORBA::Fixed("0.0000000000000000000000000000001"));
         EXPECT_EQ((get<YV_Cxx::FixedT<1, 0>>(in)), CORBA::Fixed(7));
     }},
    {"sequences",
     [](YV_CDR::OutputStream& out) {
         put(out, make_seq<YV_Cxx::UnboundedSequence<LongSeq>>({make_seq<LongSeq>({1, 2}), LongSeq(), make_seq<LongSeq>({3})}));
         put(out, make_seq<StringSeq>({"a", "bc"}));
         put(out, make_seq<YV_Cxx::UnboundedSequence<CORBA::Octet>>({1, 0, 255}));
         put(out, make_seq<YV_Cxx::BoundedSequence<CORBA::Boolean, 2>>({true, false}));
         put(out, make_seq<YV_Cxx::UnboundedSequence<CORBA::Double>>({0.5, -2.0}));
         put(out, make_seq<YV_Cxx::UnboundedSequence<CORBA::Short>>({1, -1, 300}));
         put(out, make_seq<YV_Cxx::UnboundedSequence<CORBA::ULongLong>>({1}));
     },
     [](YV_CDR::InputStream& in) {
         auto nested = get<YV_Cxx::UnboundedSequence<LongSeq>>(in);
         ASSERT_EQ(nested.length(), 3u);
         EXPECT_EQ(nested[0].length(), 2u);
         EXPECT_EQ(nested[0][1], 2);
         EXPECT_EQ(nested[1].length(), 0u);
         EXPECT_EQ(nested[2][0], 3);
         auto names = get<StringSeq>(in);
         ASSERT_EQ(names.length(), 2u);
         EXPECT_STREQ(names[1], "bc");
         auto octets = get<YV_Cxx::UnboundedSequence<CORBA::Octet>>(in);
         ASSERT_EQ(octets.length(), 3u);
         EXPECT_EQ(octets[2], 255);
         auto flags = get<YV_Cxx::BoundedSequence<CORBA::Boolean, 2>>(in);
         ASSERT_EQ(flags.length(), 2u);
         EXPECT_TRUE(flags[0]);
         EXPECT_FALSE(flags[1]);
         auto values = get<YV_Cxx::UnboundedSequence<CORBA::Double>>(in);
         ASSERT_EQ(values.length(), 2u);
         EXPECT_EQ(values[1], -2.0);
         auto shorts = get<YV_Cxx::UnboundedSequence<CORBA::Short>>(in);
         ASSERT_EQ(shorts.length(), 3u);
         EXPECT_EQ(shorts[2], 300);
         EXPECT_EQ((get<YV_Cxx::UnboundedSequence<CORBA::ULongLong>>(in)[0]), 1u);
     }},
    {"arrays",
     [](YV_CDR::OutputStream& out) {
         const CORBA::Long grid[2][3] = {{-2, -1, 0}, {1, 2, 3}};
         put(out, grid);
         out.write_octet(5);
         const CORBA::Short row[3] = {0, 100, 200};
         put(out, row);
         const CORBA::String_var words[2] = {"x", "yz"};
         put(out, words);
     },
     [](YV_CDR::InputStream& in) {
         CORBA::Long grid[2][3];
         YV_Cxx::Marshal<CORBA::Long[2][3]>::read(in, grid);
         EXPECT_EQ(grid[0][0], -2);
         EXPECT_EQ(grid[1][2], 3);
         EXPECT_EQ(in.read_octet(), 5);
         CORBA::Short row[3];
         YV_Cxx::Marshal<CORBA::Short[3]>::read(in, row);
         EXPECT_EQ(row[2], 200);
         CORBA::String_var words[2];
         YV_Cxx::Marshal<CORBA::String_var[2]>::read(in, words);
         EXPECT_STREQ(words[1], "yz");
     }},
    {"encapsulation",
     [](YV_CDR::OutputStream& out) {
         out.write_octet(7);
         auto outer = out.begin_encapsulation();
         out.write_ulong(42);
         out.write_string("x");
         auto inner = out.begin_encapsulation();
         out.write_double(2.5);
         out.end_encapsulation(inner);
         out.write_short(-7);
         out.end_encapsulation(outer);
         out.write_long(-1);
     },
     [](YV_CDR::InputStream& in) {
         EXPECT_EQ(in.read_octet(), 7);
         YV_CDR::InputStream outer = in.encapsulation();
         EXPECT_EQ(outer.read_ulong(), 42u);
         EXPECT_STREQ(CORBA::String_var(outer.read_string()).in(), "x");
         YV_CDR::InputStream inner = outer.encapsulation();
         EXPECT_EQ(inner.read_double(), 2.5);
         EXPECT_EQ(inner.remaining(), 0u);
         EXPECT_EQ(outer.read_short(), -7);
         EXPECT_EQ(outer.remaining(), 0u);
         EXPECT_EQ(in.read_long(), -1);
     }},
};

TEST(CdrVectors, EncoderWritesWhatOmniOrbWrites)
{
    for (const Scenario& s : scenarios) {
        for (bool little : {false, true}) {
            const std::string name = std::string(s.name) + (little ? ".le" : ".be");
            SCOPED_TRACE(name);
            auto found = vectors().written.find(name);
            ASSERT_NE(found, vectors().written.end()) << "no vector";
            YV_CDR::OutputStream out(little);
            s.write(out);
            EXPECT_EQ(Octets(out.data(), out.data() + out.size()), found->second);
        }
    }
}

TEST(CdrVectors, DecoderReadsWhatOmniOrbWrites)
{
    for (const Scenario& s : scenarios) {
        for (bool little : {false, true}) {
            const std::string name = std::string(s.name) + (little ? ".le" : ".be");
            SCOPED_TRACE(name);
            const Octets& octets = vectors().written.at(name);
            YV_CDR::InputStream in(octets.data(), octets.size(), little);
            s.check(in);
            EXPECT_EQ(in.remaining(), 0u);
        }
    }
}

// Wide characters: what omniORB reads from given octets, and what this
// decoder reads from them. Where omniORB keeps surrogates apart (it holds
// UTF-16 code units in its wchar_t) this decoder joins them; a wchar of a
// surrogate pair omniORB refuses, this decoder accepts.
std::string describe(const CORBA::WChar* s)
{
    std::string r;
    for (; *s != 0; ++s) {
        char b[16];
        std::snprintf(b, sizeof b, "%sU+%04X", r.empty() ? "" : " ", static_cast<unsigned>(*s));
        r += b;
    }
    return r.empty() ? "empty" : r;
}

TEST(CdrVectors, WideCharactersAsOmniOrbReadsThem)
{
    const struct {
        const char* name;
        bool string;
        const char* ours;  // where this decoder differs from omniORB
    } cases[] = {
        {"wstring.be", true, nullptr},     {"wstring.bom-be", true, nullptr}, {"wstring.bom-le", true, nullptr},
        {"wstring.pair", true, "U+1F600"}, {"wstring.empty", true, nullptr},  {"wchar.be", false, nullptr},
        {"wchar.bom-le", false, nullptr},  {"wchar.pair", false, "U+1F600"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto found = vectors().read.find(c.name);
        ASSERT_NE(found, vectors().read.end()) << "no vector";
        const Octets& octets = found->second.first;
        YV_CDR::InputStream in(octets.data(), octets.size(), false);
        std::string result;
        if (c.string) {
            CORBA::WString_var w = in.read_wstring();
            result = describe(w);
        } else {
            const CORBA::WChar w[2] = {in.read_wchar(), 0};
            result = describe(w);
        }
        EXPECT_EQ(result, c.ours != nullptr ? c.ours : found->second.second);
    }
    // What this encoder writes is what omniORB read as intended.
    YV_CDR::OutputStream out(false);
    out.write_wstring(L"A\u00e9\u20ac");
    EXPECT_EQ(Octets(out.data(), out.data() + out.size()), vectors().read.at("wstring.be").first);
    EXPECT_EQ(vectors().read.at("wstring.be").second, "U+0041 U+00E9 U+20AC");
}

} // namespace
