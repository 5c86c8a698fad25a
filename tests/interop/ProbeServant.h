// The servant of Interop::Probe that both ORBs' servers run: it checks every
// in and inout value against the shared samples (BAD_PARAM with the minor
// codes below when one is wrong) and answers the samples the clients
// expect.
#ifndef INTEROP_PROBE_SERVANT_H
#define INTEROP_PROBE_SERVANT_H

#include "InteropOrb.h"

#include <mutex>
#include <string>
#include <vector>

namespace interop {

// Minor codes of the BAD_PARAM a servant raises for a value it did not
// expect: the in argument, or the inout argument.
const CORBA::ULong bad_in_value = 0x49560001;
const CORBA::ULong bad_inout_value = 0x49560002;

class ProbeServant : public virtual POA_Interop::Probe {
public:
    // `orb_name` is what the version attribute answers.
    ProbeServant(CORBA::ORB_ptr orb, PortableServer::POA_ptr poa, const char* orb_name);

    CORBA::Short echo_short(CORBA::Short a, CORBA::Short& b, CORBA::Short_out c) override;
    CORBA::UShort echo_ushort(CORBA::UShort a, CORBA::UShort& b, CORBA::UShort_out c) override;
    CORBA::Long echo_long(CORBA::Long a, CORBA::Long& b, CORBA::Long_out c) override;
    CORBA::ULong echo_ulong(CORBA::ULong a, CORBA::ULong& b, CORBA::ULong_out c) override;
    CORBA::LongLong echo_longlong(CORBA::LongLong a, CORBA::LongLong& b, CORBA::LongLong_out c) override;
    CORBA::ULongLong echo_ulonglong(CORBA::ULongLong a, CORBA::ULongLong& b, CORBA::ULongLong_out c) override;
    CORBA::Float echo_float(CORBA::Float a, CORBA::Float& b, CORBA::Float_out c) override;
    CORBA::Double echo_double(CORBA::Double a, CORBA::Double& b, CORBA::Double_out c) override;
    CORBA::LongDouble echo_longdouble(CORBA::LongDouble a, CORBA::LongDouble& b,
                                      CORBA::LongDouble_out c) override;
    CORBA::Boolean echo_boolean(CORBA::Boolean a, CORBA::Boolean& b, CORBA::Boolean_out c) override;
    CORBA::Char echo_char(CORBA::Char a, CORBA::Char& b, CORBA::Char_out c) override;
    CORBA::WChar echo_wchar(CORBA::WChar a, CORBA::WChar& b, CORBA::WChar_out c) override;
    CORBA::Octet echo_octet(CORBA::Octet a, CORBA::Octet& b, CORBA::Octet_out c) override;

    char* echo_string(const char* a, char*& b, CORBA::String_out c) override;
    char* echo_shortname(const char* a, char*& b, Interop::ShortName_out c) override;
    CORBA::WChar* echo_wstring(const CORBA::WChar* a, CORBA::WChar*& b, CORBA::WString_out c) override;
    CORBA::WChar* echo_shortwname(const CORBA::WChar* a, CORBA::WChar*& b, Interop::ShortWName_out c) override;

    Interop::Color echo_color(Interop::Color a, Interop::Color& b, Interop::Color_out c) override;
    Interop::Score echo_score(Interop::Score a, Interop::Tally& b, Interop::Count_out c) override;
    Interop::Money echo_money(const Interop::Money& a, Interop::Money& b, Interop::Money_out c) override;
    Interop::BigDecimal echo_bigdecimal(const Interop::BigDecimal& a, Interop::BigDecimal& b,
                                        Interop::BigDecimal_out c) override;

    Interop::Point echo_point(const Interop::Point& a, Interop::Point& b, Interop::Point_out c) override;
    Interop::Basics echo_basics(const Interop::Basics& a, Interop::Basics& b, Interop::Basics_out c) override;
    Interop::Person* echo_person(const Interop::Person& a, Interop::Person& b, Interop::Person_out c) override;
    Interop::Tree* echo_tree(const Interop::Tree& a, Interop::Tree& b, Interop::Tree_out c) override;

    Interop::ByLong* echo_bylong(const Interop::ByLong& a, Interop::ByLong& b, Interop::ByLong_out c) override;
    Interop::ByColor* echo_bycolor(const Interop::ByColor& a, Interop::ByColor& b,
                                   Interop::ByColor_out c) override;
    Interop::ByChar* echo_bychar(const Interop::ByChar& a, Interop::ByChar& b, Interop::ByChar_out c) override;
    Interop::ByBool* echo_bybool(const Interop::ByBool& a, Interop::ByBool& b, Interop::ByBool_out c) override;
    Interop::ByUShort* echo_byushort(const Interop::ByUShort& a, Interop::ByUShort& b,
                                     Interop::ByUShort_out c) override;
    Interop::ByLongLong* echo_bylonglong(const Interop::ByLongLong& a, Interop::ByLongLong& b,
                                         Interop::ByLongLong_out c) override;

    Interop::LongSeq* echo_longseq(const Interop::LongSeq& a, Interop::LongSeq& b,
                                   Interop::LongSeq_out c) override;
    Interop::ShortLongSeq* echo_shortlongseq(const Interop::ShortLongSeq& a, Interop::ShortLongSeq& b,
                                             Interop::ShortLongSeq_out c) override;
    Interop::StringSeq* echo_stringseq(const Interop::StringSeq& a, Interop::StringSeq& b,
                                       Interop::StringSeq_out c) override;
    Interop::WStringSeq* echo_wstringseq(const Interop::WStringSeq& a, Interop::WStringSeq& b,
                                         Interop::WStringSeq_out c) override;
    Interop::LongSeqSeq* echo_longseqseq(const Interop::LongSeqSeq& a, Interop::LongSeqSeq& b,
                                         Interop::LongSeqSeq_out c) override;
    Interop::PersonSeq* echo_personseq(const Interop::PersonSeq& a, Interop::PersonSeq& b,
                                       Interop::PersonSeq_out c) override;
    Interop::UnionSeq* echo_unionseq(const Interop::UnionSeq& a, Interop::UnionSeq& b,
                                     Interop::UnionSeq_out c) override;
    Interop::Octets* echo_octets(const Interop::Octets& a, Interop::Octets& b, Interop::Octets_out c) override;

    Interop::Matrix_slice* echo_matrix(const Interop::Matrix a, Interop::Matrix b, Interop::Matrix_out c) override;
    Interop::Names_slice* echo_names(const Interop::Names a, Interop::Names b, Interop::Names_out c) override;
    Interop::Triangle_slice* echo_triangle(const Interop::Triangle a, Interop::Triangle b,
                                           Interop::Triangle_out c) override;
    Interop::Triangles* echo_triangles(const Interop::Triangles& a, Interop::Triangles& b,
                                       Interop::Triangles_out c) override;

    CORBA::Any* echo_any(const CORBA::Any& a, CORBA::Any& b, CORBA::Any_out c) override;
    char* inspect_any(const CORBA::Any& value) override;
    CORBA::Any* make_any(const char* kind, CORBA::Long index) override;

    CORBA::Long call_back(Interop::Callback_ptr cb, CORBA::Long value) override;
    void hold(Interop::Callback_ptr cb) override;
    Interop::Callback_ptr held() override;
    void notify_held(const char* event) override;
    Interop::Callback_ptr echo_callback(Interop::Callback_ptr a, Interop::Callback_ptr& b,
                                        Interop::Callback_out c) override;
    Interop::Probe_ptr self() override;
    Interop::Probe_ptr spawn() override;
    void retire() override;
    CORBA::Object_ptr echo_object(CORBA::Object_ptr a) override;

    char* version() override;
    CORBA::ULongLong calls() override;
    char* label() override;
    void label(const char* value) override;
    Interop::Point origin() override;
    void origin(const Interop::Point& value) override;
    Interop::Color shade() override;
    void shade(Interop::Color value) override;
    Interop::ByLong* choice() override;
    void choice(const Interop::ByLong& value) override;

    void fail(const char* which, CORBA::ULong minor, CORBA::UShort completed, char*& note,
              CORBA::Long_out code) override;

    void post(const char* note) override;
    Interop::StringSeq* posted() override;

    CORBA::Long add(CORBA::Long a, CORBA::Long b) override;
    Interop::Octets* bounce(const Interop::Octets& data) override;

    PortableServer::POA_ptr _default_POA() override;

private:
    CORBA::ORB_var m_orb;
    PortableServer::POA_var m_poa;
    const std::string m_orb_name;

    std::mutex m_mutex;
    CORBA::ULongLong m_calls = 0;
    std::string m_label;
    Interop::Point m_origin;
    Interop::Color m_shade = Interop::red;
    Interop::ByLong m_choice;
    Interop::Callback_var m_held;
    std::vector<std::string> m_posted;
};

} // namespace interop

#endif
