// The type codes of vectors/vectors.idl (the types of the omniORB CDR
// vectors in data/cdr_vectors.txt), in the shape generated code defines
// them, and the C++ mapping of Point.
#ifndef VECTORTYPES_HH
#define VECTORTYPES_HH

#include <omg/CORBA.hh>

namespace V {
extern const CORBA::TypeCode_ptr _tc_Node;
extern const CORBA::TypeCode_ptr _tc_Forest;
extern const CORBA::TypeCode_ptr _tc_Tree;
extern const CORBA::TypeCode_ptr _tc_Point;
extern const CORBA::TypeCode_ptr _tc_Pair;
extern const CORBA::TypeCode_ptr _tc_U;
extern const CORBA::TypeCode_ptr _tc_LongSeqSeq;
extern const CORBA::TypeCode_ptr _tc_Wide;
extern const CORBA::TypeCode_ptr _tc_Colour;
extern const CORBA::TypeCode_ptr _tc_PointAlias;
extern const CORBA::TypeCode_ptr _tc_Name;
extern const CORBA::TypeCode_ptr _tc_Grid;
extern const CORBA::TypeCode_ptr _tc_Account;
extern const CORBA::TypeCode_ptr _tc_Refused;
extern const CORBA::TypeCode_ptr _tc_ByColour;
extern const CORBA::TypeCode_ptr _tc_Kinds;

struct Point {
    CORBA::Short x;
    CORBA::Double y;
};
} // namespace V

namespace YV_Cxx {
template <>
struct Marshal<V::Point> {
    static constexpr std::size_t min_size = 10;
    static void write(YV_CDR::OutputStream& out, const V::Point& v)
    {
        out.write_short(v.x);
        out.write_double(v.y);
    }
    static void read(YV_CDR::InputStream& in, V::Point& v)
    {
        v.x = in.read_short();
        v.y = in.read_double();
    }
};
} // namespace YV_Cxx

#endif
