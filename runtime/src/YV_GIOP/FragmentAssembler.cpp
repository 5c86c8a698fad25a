#include "YV_GIOP/FragmentAssembler.h"

#include "zantic_sys/YV_CDR/ByteOrder.h"

#include <cstdint>

namespace YV_GIOP {

namespace {

bool may_fragment(MsgType type)
{
    return type == Request || type == Reply || type == LocateRequest || type == LocateReply;
}

// The request id that a GIOP 1.2 message or fragment begins its body with.
bool request_id_of(const Message& m, CORBA::ULong& id)
{
    if (m.octets.size() < MessageHeader::size + 4)
        return false;
    id = YV_CDR::load<std::uint32_t>(m.octets.data() + MessageHeader::size,
                                     m.header.little_endian != YV_CDR::native_little_endian);
    return true;
}

} // namespace

FragmentAssembler::Result FragmentAssembler::append(Message& first, const Message& fragment,
                                                     std::size_t data_offset, Message& whole)
{
    if (fragment.header.version != first.header.version
        || fragment.header.little_endian != first.header.little_endian || fragment.octets.size() < data_offset)
        return error;
    const std::size_t added = fragment.octets.size() - data_offset;
    if (first.octets.size() + added > m_limit || m_kept + added > m_limit)
        return error;
    first.octets.insert(first.octets.end(), fragment.octets.begin() + static_cast<std::ptrdiff_t>(data_offset),
                        fragment.octets.end());
    m_kept += added;
    if (fragment.header.more_fragments)
        return pending;
    m_kept -= first.octets.size() - MessageHeader::size;
    first.header.more_fragments = false;
    first.header.body_size = static_cast<CORBA::ULong>(first.octets.size() - MessageHeader::size);
    first.header.write(first.octets.data());
    whole = std::move(first);
    return complete;
}

FragmentAssembler::Result FragmentAssembler::add(Message&& piece, Message& whole)
{
    const MessageHeader& h = piece.header;
    if (h.type != Fragment) {
        if (!h.more_fragments) {
            // GIOP 1.1 allows nothing between a message and its fragments.
            if (m_v11_open && h.version.minor == 1)
                return error;
            whole = std::move(piece);
            return complete;
        }
        if (!may_fragment(h.type))
            return error;
        const std::size_t body = piece.octets.size() - MessageHeader::size;
        if (m_kept + body > m_limit)
            return error;
        if (h.version.minor == 1) {
            if (m_v11_open)
                return error;
            m_v11 = std::move(piece);
            m_v11_open = true;
        } else {
            CORBA::ULong id = 0;
            if (!request_id_of(piece, id) || m_by_id.count(id) != 0)
                return error;
            m_by_id.emplace(id, std::move(piece));
        }
        m_kept += body;
        return pending;
    }

    if (h.version.minor == 1) {
        if (!m_v11_open)
            return error;
        const Result r = append(m_v11, piece, MessageHeader::size, whole);
        if (r == error)
            m_kept -= m_v11.octets.size() - MessageHeader::size;
        if (r != pending)
            m_v11_open = false;
        return r;
    }
    CORBA::ULong id = 0;
    if (!request_id_of(piece, id))
        return error;
    auto found = m_by_id.find(id);
    if (found == m_by_id.end())
        return error;
    const Result r = append(found->second, piece, MessageHeader::size + 4, whole);
    if (r == error)
        m_kept -= found->second.octets.size() - MessageHeader::size;
    if (r != pending)
        m_by_id.erase(found);
    return r;
}

} // namespace YV_GIOP
