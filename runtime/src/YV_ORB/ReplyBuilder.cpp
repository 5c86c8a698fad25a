#include "YV_ORB/ReplyBuilder.h"

#include "YV_GIOP/SpareBuffers.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace YV_ORB {

using YV_GIOP::MessageHeader;
using YV_GIOP::ReplyHeader;

ReplyBuilder::ReplyBuilder(YV_GIOP::Version version, CORBA::ULong request_id)
    : m_framed(true), m_version(version), m_request_id(request_id), m_out(YV_GIOP::SpareBuffers::take_stream(256))
{
    m_out.giop_minor(version.minor);
}

ReplyBuilder::ReplyBuilder() : m_framed(false), m_version{1, 2}, m_request_id(0), m_out(YV_GIOP::SpareBuffers::take_stream(256))
{
}

ReplyBuilder::~ReplyBuilder()
{
    YV_GIOP::SpareBuffers::give_stream(std::move(m_out));
}

YV_CDR::OutputStream& ReplyBuilder::begin(ReplyHeader::Status status, bool with_body)
{
    m_status = status;
    m_out.clear();
    if (!m_framed)
        return m_out;
    m_out.grow(MessageHeader::size);
    ReplyHeader h;
    h.request_id = m_request_id;
    h.reply_status = status;
    h.write(m_out, m_version);
    if (with_body && m_version.minor >= 2)
        m_out.align(8);
    return m_out;
}

void ReplyBuilder::exception(const CORBA::Exception& e)
{
    const CORBA::SystemException* system = dynamic_cast<const CORBA::SystemException*>(&e);
    if (system != nullptr) {
        system->_yv_write(begin(ReplyHeader::SYSTEM_EXCEPTION, true));
        return;
    }
    try {
        e._yv_write(begin(ReplyHeader::USER_EXCEPTION, true));
    } catch (const CORBA::SystemException&) {
        // A user exception whose class cannot write itself.
        CORBA::UNKNOWN(0x4f4d0001, CORBA::COMPLETED_YES)._yv_write(begin(ReplyHeader::SYSTEM_EXCEPTION, true));
    }
}

void ReplyBuilder::finish()
{
    if (m_framed) {
        MessageHeader h;
        h.version = m_version;
        h.little_endian = m_out.little_endian();
        h.type = YV_GIOP::Reply;
        h.body_size = static_cast<CORBA::ULong>(m_out.size() - MessageHeader::size);
        h.write(m_out.data());
    }
}

std::vector<unsigned char> ReplyBuilder::take()
{
    finish();
    return std::vector<unsigned char>(m_out.data(), m_out.data() + m_out.size());
}

} // namespace YV_ORB
