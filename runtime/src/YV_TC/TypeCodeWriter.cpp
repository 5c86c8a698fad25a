#include "TypeCodeWriter.h"

#include "Discriminator.h"
#include "TypeCodeKinds.h"
#include "zantic_sys/CORBA/SystemException.h"

#include <algorithm>

namespace YV_TC {

namespace {

const CORBA::ULong indirection = 0xffffffff;

} // namespace

void TypeCodeWriter::write(CORBA::TypeCode_ptr tc)
{
    if (tc == nullptr) {
        m_out.write_ulong(CORBA::tk_null);
        return;
    }
    if (tc->yv_is_placeholder())
        throw CORBA::BAD_TYPECODE(0, CORBA::COMPLETED_NO);
    const CORBA::TCKind kind = tc->kind();
    if (is_simple(kind)) {
        m_out.write_ulong(kind);
        return;
    }
    switch (kind) {
    case CORBA::tk_string:
    case CORBA::tk_wstring:
        m_out.write_ulong(kind);
        m_out.write_ulong(tc->yv_length());
        return;
    case CORBA::tk_fixed:
        m_out.write_ulong(kind);
        m_out.write_ushort(tc->yv_digits());
        m_out.write_short(tc->yv_scale());
        return;
    default:
        break;
    }
    m_out.align(4);
    auto seen = std::find_if(m_written.begin(), m_written.end(),
                             [tc](const std::pair<CORBA::TypeCode_ptr, std::size_t>& w) { return w.first == tc; });
    if (seen != m_written.end()) {
        m_out.write_ulong(indirection);
        const std::size_t at = m_out.size();
        m_out.write_long(static_cast<CORBA::Long>(static_cast<long long>(seen->second) - static_cast<long long>(at)));
        return;
    }
    m_written.emplace_back(tc, m_out.size());
    m_out.write_ulong(kind);
    write_encapsulated(tc);
}

void TypeCodeWriter::write_id_and_name(CORBA::TypeCode_ptr tc)
{
    m_out.write_string(tc->yv_id());
    m_out.write_string(tc->yv_name());
}

void TypeCodeWriter::write_encapsulated(CORBA::TypeCode_ptr tc)
{
    const YV_CDR::OutputStream::Encapsulation e = m_out.begin_encapsulation();
    const CORBA::TCKind kind = tc->kind();
    switch (kind) {
    case CORBA::tk_objref:
    case CORBA::tk_native:
    case CORBA::tk_abstract_interface:
    case CORBA::tk_local_interface:
        write_id_and_name(tc);
        break;
    case CORBA::tk_struct:
    case CORBA::tk_except:
        write_id_and_name(tc);
        m_out.write_ulong(tc->yv_member_count());
        for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i) {
            m_out.write_string(tc->yv_member(i).name);
            write(tc->yv_member_type(i));
        }
        break;
    case CORBA::tk_union: {
        write_id_and_name(tc);
        const CORBA::TypeCode_ptr disc = tc->yv_content();
        write(disc);
        m_out.write_long(tc->yv_default_index());
        m_out.write_ulong(tc->yv_member_count());
        for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i) {
            // The default member's label is any value of the type: 0.
            const bool is_default = static_cast<CORBA::Long>(i) == tc->yv_default_index();
            write_discriminator(m_out, disc, is_default ? 0 : tc->yv_member(i).label);
            m_out.write_string(tc->yv_member(i).name);
            write(tc->yv_member_type(i));
        }
        break;
    }
    case CORBA::tk_enum:
        write_id_and_name(tc);
        m_out.write_ulong(tc->yv_member_count());
        for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i)
            m_out.write_string(tc->yv_member(i).name);
        break;
    case CORBA::tk_sequence:
    case CORBA::tk_array:
        write(tc->yv_content());
        m_out.write_ulong(tc->yv_length());
        break;
    case CORBA::tk_alias:
    case CORBA::tk_value_box:
        write_id_and_name(tc);
        write(tc->yv_content());
        break;
    case CORBA::tk_value:
        write_id_and_name(tc);
        m_out.write_short(tc->yv_modifier());
        write(tc->yv_content());
        m_out.write_ulong(tc->yv_member_count());
        for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i) {
            m_out.write_string(tc->yv_member(i).name);
            write(tc->yv_member_type(i));
            m_out.write_short(tc->yv_member(i).visibility);
        }
        break;
    default:
        throw CORBA::BAD_TYPECODE(0, CORBA::COMPLETED_NO);
    }
    m_out.end_encapsulation(e);
}

} // namespace YV_TC
