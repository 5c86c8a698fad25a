// The client-side mapping of a few IDL types, in the shape the client
// generator writes them, for the runtime's own tests (which run without the
// compiler):
//     module Bank {
//       struct Money { long units; short cents; };            // fixed length
//       struct Owner { string name; sequence<long> ids; };     // variable length
//       typedef sequence<string> Names;
//       typedef long Grid[2][3];
//       exception Refused { string reason; };
//     };
#ifndef MAPPINGTYPES_HH
#define MAPPINGTYPES_HH

#include <omg/CORBA.hh>
#include <zantic_sys/yvcxx.h>

namespace Bank {

struct Money {
    CORBA::Long units;
    CORBA::Short cents;
};
typedef YV_Cxx::Fix_var<Money> Money_var;
typedef Money& Money_out;

struct Owner {
    CORBA::String_var name;
    YV_Cxx::UnboundedSequence<CORBA::Long> ids;
};
typedef YV_Cxx::Var_var<Owner> Owner_var;
typedef YV_Cxx::Var_out<Owner> Owner_out;

typedef YV_Cxx::UnboundedSequence<CORBA::String_var> Names;
typedef YV_Cxx::Seq_var<Names> Names_var;
typedef YV_Cxx::Seq_out<Names> Names_out;

typedef CORBA::Long Grid[2][3];
typedef CORBA::Long Grid_slice[3];
typedef YV_Cxx::Array_var<Grid> Grid_var;
inline Grid_slice* Grid_alloc() { return YV_Cxx::array_alloc<Grid>(); }
inline void Grid_free(Grid_slice* a) { YV_Cxx::array_free<Grid>(a); }

class Refused : public CORBA::UserException {
public:
    Refused() = default;
    explicit Refused(const char* r) : reason(r) {}
    const char* _name() const override { return "Refused"; }
    const char* _rep_id() const override { return "IDL:Bank/Refused:1.0"; }
    void _raise() const override { throw *this; }

    CORBA::String_var reason;
};

} // namespace Bank

// Marshaling as the client generator writes it, for Owner (Money has none,
// so that its streamables show how a type without marshaling fails).
template <>
struct YV_Cxx::Marshal<Bank::Owner> {
    static constexpr std::size_t min_size = 9;
    static void write(YV_CDR::OutputStream& out, const Bank::Owner& v)
    {
        YV_Cxx::Marshal<CORBA::String_var>::write(out, v.name);
        YV_Cxx::Marshal<YV_Cxx::UnboundedSequence<CORBA::Long>>::write(out, v.ids);
    }
    static void read(YV_CDR::InputStream& in, Bank::Owner& v)
    {
        YV_Cxx::Marshal<CORBA::String_var>::read(in, v.name);
        YV_Cxx::Marshal<YV_Cxx::UnboundedSequence<CORBA::Long>>::read(in, v.ids);
    }
};

#endif
