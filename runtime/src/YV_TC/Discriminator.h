// Union discriminators in CDR and the member a discriminator selects. A
// label is kept as a LongLong; normalise() gives the one value each
// discriminator value has, whatever signedness it was converted with
// (char labels as unsigned, booleans 0 or 1).
#ifndef YV_RT_YV_TC_DISCRIMINATOR_H
#define YV_RT_YV_TC_DISCRIMINATOR_H

#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

namespace YV_TC {

// True for the kinds a discriminator may have (aliases looked through).
bool is_discriminator(CORBA::TypeCode_ptr tc);

CORBA::LongLong normalise(CORBA::TypeCode_ptr discriminator, CORBA::LongLong label);

// Reads a discriminator value; enumerators out of range raise MARSHAL
// (minor_bad_enum).
CORBA::LongLong read_discriminator(YV_CDR::InputStream& in, CORBA::TypeCode_ptr discriminator);
void write_discriminator(YV_CDR::OutputStream& out, CORBA::TypeCode_ptr discriminator, CORBA::LongLong value);

// The member of union `tc` that `value` selects: the member with that
// label, else the default member, else -1 (no member).
CORBA::Long select_member(CORBA::TypeCode_ptr tc, CORBA::LongLong value);

} // namespace YV_TC

#endif
