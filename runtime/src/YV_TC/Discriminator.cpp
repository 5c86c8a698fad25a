#include "Discriminator.h"

#include "zantic_sys/CORBA/SystemException.h"

namespace YV_TC {

bool is_discriminator(CORBA::TypeCode_ptr tc)
{
    switch (tc->yv_unaliased()->kind()) {
    case CORBA::tk_short:
    case CORBA::tk_long:
    case CORBA::tk_ushort:
    case CORBA::tk_ulong:
    case CORBA::tk_longlong:
    case CORBA::tk_ulonglong:
    case CORBA::tk_char:
    case CORBA::tk_boolean:
    case CORBA::tk_wchar:
    case CORBA::tk_enum:
        return true;
    default:
        return false;
    }
}

CORBA::LongLong normalise(CORBA::TypeCode_ptr discriminator, CORBA::LongLong label)
{
    switch (discriminator->yv_unaliased()->kind()) {
    case CORBA::tk_short: return static_cast<CORBA::Short>(label);
    case CORBA::tk_ushort: return static_cast<CORBA::UShort>(label);
    case CORBA::tk_long: return static_cast<CORBA::Long>(label);
    case CORBA::tk_ulong:
    case CORBA::tk_enum:
    case CORBA::tk_wchar: return static_cast<CORBA::ULong>(label);
    case CORBA::tk_char: return static_cast<unsigned char>(label);
    case CORBA::tk_boolean: return label != 0 ? 1 : 0;
    default: return label;
    }
}

CORBA::LongLong read_discriminator(YV_CDR::InputStream& in, CORBA::TypeCode_ptr discriminator)
{
    const CORBA::TypeCode_ptr disc = discriminator->yv_unaliased();
    switch (disc->kind()) {
    case CORBA::tk_short: return in.read_short();
    case CORBA::tk_ushort: return in.read_ushort();
    case CORBA::tk_long: return in.read_long();
    case CORBA::tk_ulong: return in.read_ulong();
    case CORBA::tk_longlong: return in.read_longlong();
    case CORBA::tk_ulonglong: return static_cast<CORBA::LongLong>(in.read_ulonglong());
    case CORBA::tk_boolean: return in.read_boolean() ? 1 : 0;
    case CORBA::tk_char: return static_cast<unsigned char>(in.read_char());
    case CORBA::tk_wchar: return static_cast<CORBA::ULong>(in.read_wchar());
    case CORBA::tk_enum: {
        const CORBA::ULong v = in.read_ulong();
        if (v >= disc->yv_member_count())
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
        return v;
    }
    default:
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_typecode);
    }
}

void write_discriminator(YV_CDR::OutputStream& out, CORBA::TypeCode_ptr discriminator, CORBA::LongLong value)
{
    switch (discriminator->yv_unaliased()->kind()) {
    case CORBA::tk_short: out.write_short(static_cast<CORBA::Short>(value)); break;
    case CORBA::tk_ushort: out.write_ushort(static_cast<CORBA::UShort>(value)); break;
    case CORBA::tk_long: out.write_long(static_cast<CORBA::Long>(value)); break;
    case CORBA::tk_ulong:
    case CORBA::tk_enum: out.write_ulong(static_cast<CORBA::ULong>(value)); break;
    case CORBA::tk_longlong: out.write_longlong(value); break;
    case CORBA::tk_ulonglong: out.write_ulonglong(static_cast<CORBA::ULongLong>(value)); break;
    case CORBA::tk_boolean: out.write_boolean(value != 0); break;
    case CORBA::tk_char: out.write_char(static_cast<CORBA::Char>(value)); break;
    case CORBA::tk_wchar: out.write_wchar(static_cast<CORBA::WChar>(value)); break;
    default: throw CORBA::BAD_TYPECODE(0, CORBA::COMPLETED_NO);
    }
}

CORBA::Long select_member(CORBA::TypeCode_ptr tc, CORBA::LongLong value)
{
    const CORBA::TypeCode_ptr disc = tc->yv_content();
    const CORBA::LongLong v = normalise(disc, value);
    for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i)
        if (static_cast<CORBA::Long>(i) != tc->yv_default_index() && normalise(disc, tc->yv_member(i).label) == v)
            return static_cast<CORBA::Long>(i);
    return tc->yv_default_index();
}

} // namespace YV_TC
