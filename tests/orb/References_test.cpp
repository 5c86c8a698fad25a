// References and object URLs: the IORs omniORB writes, profiles of every
// IIOP version, stringified forms, corbaloc and corbaname, string names and
// the choice of code sets.
#include "TestData.h"
#include "YV_TestSupport.h"

#include "YV_GIOP/CodeSets.h"
#include "YV_GIOP/IIOPProfile.h"
#include "YV_GIOP/IOR.h"
#include "YV_GIOP/ObjectURL.h"
#include "YV_GIOP/StringName.h"

#include <omg/CORBA.hh>

#include <gtest/gtest.h>

#include <sstream>

using namespace YV_GIOP;

namespace {

// The two references of data/giop/omniorb_iors.txt: a root-POA object and
// the object with the key "EchoKey".
std::vector<std::string> omniorb_iors()
{
    std::istringstream in(yvtest::read_file(std::string(YV_TEST_DATA_DIR) + "/giop/omniorb_iors.txt"));
    std::vector<std::string> iors;
    std::string line;
    while (std::getline(in, line))
        if (line.compare(0, 4, "IOR:") == 0)
            iors.push_back(line);
    return iors;
}

TEST(Ior, ReadsTheReferencesOfAnotherOrb)
{
    const std::vector<std::string> iors = omniorb_iors();
    ASSERT_EQ(iors.size(), 2u);
    for (const std::string& text : iors) {
        const IOR ior = IOR::from_string(text);
        EXPECT_EQ(ior.type_id, "IDL:Test/Echo:1.0");
        ASSERT_EQ(ior.profiles.size(), 1u);
        const IIOPProfile p = IIOPProfile::decode(ior.profiles[0]);
        EXPECT_EQ(p.version, (Version{1, 2}));
        EXPECT_EQ(p.host, "127.0.0.1");
        EXPECT_EQ(p.port, 59099);
        const TaggedComponent* orb_type = p.find(TAG_ORB_TYPE);
        ASSERT_NE(orb_type, nullptr);
        EXPECT_EQ(orbtest::to_hex(orb_type->component_data), "0100000000545441");
        CodeSets::Info info;
        ASSERT_TRUE(p.code_sets(info));
        EXPECT_EQ(info.for_char.native_code_set, CodeSets::iso_8859_1);
        EXPECT_EQ(info.for_char.conversion_code_sets, std::vector<CORBA::ULong>{CodeSets::utf_8});
        EXPECT_EQ(info.for_wchar.native_code_set, CodeSets::utf_16);
        // Written again, nothing changes.
        EXPECT_EQ(ior.to_string(), text);
        // The same profile made from its fields is the same profile.
        EXPECT_EQ(orbtest::to_hex(p.encode().profile_data), orbtest::to_hex(ior.profiles[0].profile_data));
    }
    EXPECT_EQ(IIOPProfile::decode(IOR::from_string(iors[1]).profiles[0]).object_key,
              std::vector<CORBA::Octet>({'E', 'c', 'h', 'o', 'K', 'e', 'y'}));
    // Upper-case digits and prefix are read too.
    std::string upper = iors[1];
    for (char& c : upper)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(IOR::from_string(upper).type_id, "IDL:Test/Echo:1.0");
}

TEST(Ior, ProfilesOfEveryIiopVersionTravel)
{
    for (CORBA::Octet minor : {0, 1, 2}) {
        SCOPED_TRACE(static_cast<int>(minor));
        IIOPProfile p;
        p.version = Version{1, minor};
        p.host = "example.org";
        p.port = 2809;
        p.object_key = {0, 1, 2, 0xff};
        TaggedComponent c;
        c.tag = TAG_CODE_SETS;
        c.component_data = CodeSets::encode(CodeSets::ours());
        p.components.push_back(c);
        IOR ior;
        ior.type_id = "IDL:A/B:1.0";
        ior.profiles.push_back(p.encode());
        ior.profiles.push_back(TaggedProfile{0x4f4d0001, {1, 2, 3}});  // kept as it is
        const IOR back = IOR::from_string(ior.to_string());
        ASSERT_EQ(back.profiles.size(), 2u);
        EXPECT_EQ(back.profiles[1].tag, 0x4f4d0001u);
        EXPECT_EQ(back.profiles[1].profile_data, (std::vector<CORBA::Octet>{1, 2, 3}));
        const IIOPProfile q = IIOPProfile::decode(back.profiles[0]);
        EXPECT_EQ(q.host, p.host);
        EXPECT_EQ(q.port, p.port);
        EXPECT_EQ(q.object_key, p.object_key);
        EXPECT_EQ(q.components.size(), minor == 0 ? 0u : 1u);
        CodeSets::Info info;
        EXPECT_EQ(q.code_sets(info), minor != 0);
    }
    IOR nil;
    EXPECT_TRUE(IOR::from_string(nil.to_string()).is_nil());
}

TEST(Ior, MalformedStringsRaiseMarshal)
{
    const std::string good = omniorb_iors().at(1);
    const char* bad[] = {"", "IOR:", "IOR:0", "XOR:00", "IOR:zz", "IOR:02000000", "IOR:0100000012"};
    for (const char* text : bad)
        EXPECT_THROW(IOR::from_string(text), CORBA::MARSHAL) << text;
    // Every cut of a good reference is refused, never read past its end.
    for (std::size_t cut = 6; cut < good.size(); cut += 2)
        EXPECT_THROW(IIOPProfile::decode(IOR::from_string(good.substr(0, cut)).profiles.at(0)), CORBA::Exception)
            << cut;
}

TEST(ObjectUrl, ReadsCorbalocAndCorbaname)
{
    struct Case {
        const char* url;
        ObjectURL::Scheme scheme;
        const char* hosts;  // host:port@major.minor, comma separated; "rir" for rir:
        const char* key;
        const char* name;
    };
    const Case cases[] = {
        {"corbaloc::example.org:1234/Key", ObjectURL::corbaloc, "example.org:1234@1.0", "Key", ""},
        {"corbaloc:iiop:1.2@127.0.0.1:2/a%2fb%00", ObjectURL::corbaloc, "127.0.0.1:2@1.2", "a/b\0", ""},
        {"CORBALOC:IIOP:host/K", ObjectURL::corbaloc, "host:2809@1.0", "K", ""},
        {"corbaloc::h1:1,iiop:1.1@h2:2,:h3/K", ObjectURL::corbaloc, "h1:1@1.0,h2:2@1.1,h3:2809@1.0", "K", ""},
        {"corbaloc::[::1]:99/K", ObjectURL::corbaloc, "::1:99@1.0", "K", ""},
        {"corbaloc::[fe80::1]/K", ObjectURL::corbaloc, "fe80::1:2809@1.0", "K", ""},
        {"corbaloc::host:5", ObjectURL::corbaloc, "host:5@1.0", "", ""},
        {"corbaloc:rir:/NameService", ObjectURL::corbaloc, "rir", "NameService", ""},
        {"corbaloc:rir:", ObjectURL::corbaloc, "rir", "NameService", ""},
        {"corbaname::ns.example:2809#a/b.c", ObjectURL::corbaname, "ns.example:2809@1.0", "NameService", "a/b.c"},
        {"corbaname::ns:1/Other#x%20y", ObjectURL::corbaname, "ns:1@1.0", "Other", "x y"},
        {"corbaname::ns", ObjectURL::corbaname, "ns:2809@1.0", "NameService", ""},
        {"corbaname:rir:#a", ObjectURL::corbaname, "rir", "NameService", "a"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.url);
        ASSERT_TRUE(ObjectURL::is_url(c.url));
        const ObjectURL url = ObjectURL::parse(c.url);
        EXPECT_EQ(url.scheme, c.scheme);
        std::string hosts;
        for (const ObjectURL::Address& a : url.addresses) {
            if (!hosts.empty())
                hosts += ",";
            hosts += a.rir ? std::string("rir")
                           : a.host + ":" + std::to_string(a.port) + "@" + std::to_string(a.version.major) + "."
                                 + std::to_string(a.version.minor);
        }
        EXPECT_EQ(hosts, c.hosts);
        const std::string key = std::string(c.url).find("%00") != std::string::npos ? std::string("a/b\0", 4) : c.key;
        EXPECT_EQ(url.key, key);
        EXPECT_EQ(url.name, c.name);
    }
}

TEST(ObjectUrl, RefusesMalformedUrlsWithTheStandardMinorCodes)
{
    struct Case {
        const char* url;
        CORBA::ULong minor;
    };
    const Case cases[] = {
        {"corbalok::h/K", ObjectURL::minor_bad_scheme},
        {"IOR:00", ObjectURL::minor_bad_scheme},
        {"corbaloc:/K", ObjectURL::minor_bad_address},
        {"corbaloc:http://h/K", ObjectURL::minor_bad_address},
        {"corbaloc::/K", ObjectURL::minor_bad_address},
        {"corbaloc::h:99999/K", ObjectURL::minor_bad_address},
        {"corbaloc::h:x/K", ObjectURL::minor_bad_address},
        {"corbaloc::1@h/K", ObjectURL::minor_bad_address},
        {"corbaloc::[::1/K", ObjectURL::minor_bad_address},
        {"corbaloc::[]/K", ObjectURL::minor_bad_address},
        {"corbaloc::h,/K", ObjectURL::minor_bad_address},
        {"corbaloc:rir:,:h/K", ObjectURL::minor_bad_address},
        {"corbaloc::h/K%4", ObjectURL::minor_bad_syntax},
        {"corbaloc::h/K%zz", ObjectURL::minor_bad_syntax},
        {"corbaname::h#a%", ObjectURL::minor_bad_syntax},
    };
    for (const Case& c : cases) {
        try {
            ObjectURL::parse(c.url);
            ADD_FAILURE() << c.url << ": accepted";
        } catch (const CORBA::BAD_PARAM& e) {
            EXPECT_EQ(e.minor(), c.minor) << c.url;
        }
    }
    EXPECT_FALSE(ObjectURL::is_url("IOR:00"));
    EXPECT_FALSE(ObjectURL::is_url("corba"));
}

TEST(StringName, ReadsAndWritesNamesOfTheNamingService)
{
    struct Case {
        const char* text;
        const char* components;  // id|kind, separated by ','; nullptr: malformed
        const char* canonical;
    };
    const Case cases[] = {
        {"a", "a|", "a"},
        {"a.b", "a|b", "a.b"},
        {"a.b/c/d.e", "a|b,c|,d|e", "a.b/c/d.e"},
        {".", "|", "."},
        {".k", "|k", ".k"},
        {"a\\/b\\.c.d", "a/b.c|d", "a\\/b\\.c.d"},
        {"a\\\\.b", "a\\|b", "a\\\\.b"},
        {"x.y.z", "x.y|z", "x\\.y.z"},
        {"", nullptr, nullptr},
        {"a//b", nullptr, nullptr},
        {"/a", nullptr, nullptr},
        {"a/", nullptr, nullptr},
        {"a\\", nullptr, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        StringName name;
        const bool ok = StringName::parse(c.text, name);
        ASSERT_EQ(ok, c.components != nullptr);
        if (!ok)
            continue;
        std::string got;
        for (const StringName::Component& k : name.components)
            got += (got.empty() ? "" : ",") + k.id + "|" + k.kind;
        EXPECT_EQ(got, c.components);
        EXPECT_EQ(name.to_string(), c.canonical);
    }
}

TEST(CodeSets, ChoosesWhatBothSidesCanUse)
{
    struct Case {
        CORBA::ULong native;
        std::vector<CORBA::ULong> conversions;
        CORBA::ULong chosen;
    };
    const Case cases[] = {
        {CodeSets::iso_8859_1, {CodeSets::utf_8}, CodeSets::iso_8859_1},
        {CodeSets::utf_8, {}, CodeSets::utf_8},
        {0x00010020, {CodeSets::utf_8}, CodeSets::utf_8},   // ISO 646 converting from UTF-8
        {0x00010020, {}, CodeSets::iso_8859_1},
    };
    for (const Case& c : cases) {
        CodeSets::Info server;
        server.for_char.native_code_set = c.native;
        server.for_char.conversion_code_sets = c.conversions;
        server.for_wchar.native_code_set = CodeSets::ucs_2;
        const CodeSets::Context chosen = CodeSets::negotiate(server);
        EXPECT_EQ(chosen.char_data, c.chosen);
        EXPECT_EQ(chosen.wchar_data, CodeSets::utf_16);
        const std::vector<CORBA::Octet> octets = CodeSets::encode(chosen);
        const CodeSets::Context back = CodeSets::decode_context(octets.data(), octets.size());
        EXPECT_EQ(back.char_data, chosen.char_data);
    }
    const std::vector<CORBA::Octet> ours = CodeSets::encode(CodeSets::ours());
    const CodeSets::Info info = CodeSets::decode_info(ours.data(), ours.size());
    EXPECT_EQ(info.for_char.native_code_set, CodeSets::iso_8859_1);
    EXPECT_THROW(CodeSets::decode_context(ours.data(), 5), CORBA::MARSHAL);
}

} // namespace
