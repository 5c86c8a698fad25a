#include "YV_GIOP/MessageBuilder.h"

#include "YV_GIOP/SpareBuffers.h"

namespace YV_GIOP {

MessageBuilder::MessageBuilder(Version version, MsgType type, bool little_endian)
    : m_out(little_endian == YV_CDR::native_little_endian ? SpareBuffers::take_stream(256)
                                                          : YV_CDR::OutputStream(little_endian, 256))
{
    m_header.version = version;
    m_header.little_endian = little_endian;
    m_header.type = type;
    m_out.giop_minor(version.minor);
    m_out.grow(MessageHeader::size);
}

MessageBuilder::~MessageBuilder()
{
    SpareBuffers::give_stream(std::move(m_out));
}

void MessageBuilder::begin_body()
{
    if (m_header.version.minor >= 2)
        m_out.align(8);
}

void MessageBuilder::finish()
{
    m_header.body_size = static_cast<CORBA::ULong>(m_out.size() - MessageHeader::size);
    m_header.write(m_out.data());
}

std::vector<unsigned char> MessageBuilder::header_only(Version version, MsgType type)
{
    MessageHeader h;
    h.version = version;
    h.little_endian = YV_CDR::native_little_endian;
    h.type = type;
    std::vector<unsigned char> octets(MessageHeader::size);
    h.write(octets.data());
    return octets;
}

} // namespace YV_GIOP
