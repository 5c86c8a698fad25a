#include "zantic_sys/YV_Cxx/ValueMarshal.h"

#include "ValueFactoryRegistry.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/String_var.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace YV_Cxx {

namespace {

// Value tags: 0x7fffff00 and these bits.
constexpr CORBA::ULong tag_base = 0x7fffff00;
constexpr CORBA::ULong tag_codebase = 0x01;
constexpr CORBA::ULong tag_type_mask = 0x06;
constexpr CORBA::ULong tag_single_id = 0x02;
constexpr CORBA::ULong tag_id_list = 0x06;
constexpr CORBA::ULong tag_chunked = 0x08;
constexpr CORBA::ULong null_tag = 0;
constexpr CORBA::ULong indirection_tag = 0xffffffff;

// How deep values may nest in one another while being read.
constexpr unsigned max_value_nesting = 64;

// --- Writing -------------------------------------------------------------

struct WriteState {
    std::unordered_map<const CORBA::ValueBase*, std::size_t> values;
    std::unordered_map<std::string, std::size_t> strings;
    // Chunk nesting level of the value being written (0: not chunked).
    CORBA::Long level = 0;
    // The open chunk: where its size goes and where it began (before the
    // size's padding), or no chunk.
    bool chunk_open = false;
    std::size_t chunk_size_at = 0;
    std::size_t chunk_start = 0;
    // Where the last end tag went (none: npos).
    std::size_t end_tag_at = static_cast<std::size_t>(-1);
};

WriteState& write_state(YV_CDR::OutputStream& out)
{
    std::shared_ptr<void>& slot = out.value_state();
    if (!slot)
        slot = std::make_shared<WriteState>();
    return *static_cast<WriteState*>(slot.get());
}

void begin_chunk(YV_CDR::OutputStream& out, WriteState& st)
{
    st.chunk_start = out.size();
    st.chunk_size_at = out.reserve_ulong();
    st.chunk_open = true;
}

// Closes the open chunk; one left empty is taken back.
void end_chunk(YV_CDR::OutputStream& out, WriteState& st)
{
    if (!st.chunk_open)
        return;
    st.chunk_open = false;
    const std::size_t size = out.size() - (st.chunk_size_at + 4);
    if (size == 0)
        out.shrink_to(st.chunk_start);
    else
        out.patch_ulong(st.chunk_size_at, static_cast<CORBA::ULong>(size));
}

// An indirection: the tag, then the offset of `target` from the offset's
// own position.
void write_indirection(YV_CDR::OutputStream& out, std::size_t target)
{
    out.write_ulong(indirection_tag);
    out.align(4);
    const long long offset = static_cast<long long>(target) - static_cast<long long>(out.size());
    out.write_long(static_cast<CORBA::Long>(offset));
}

// A repository id or codebase string, or an indirection to the same string
// written before in this stream.
void write_shared_string(YV_CDR::OutputStream& out, WriteState& st, const char* s)
{
    out.align(4);
    auto it = st.strings.find(s);
    if (it != st.strings.end()) {
        write_indirection(out, it->second);
        return;
    }
    st.strings.emplace(s, out.size());
    out.write_string(s);
}

// --- Reading -------------------------------------------------------------

struct ReadState {
    ReadState() = default;
    ReadState(const ReadState&) = delete;
    ReadState& operator=(const ReadState&) = delete;
    ~ReadState()
    {
        for (auto& entry : values)
            if (disowned.count(entry.second) == 0)
                entry.second->_remove_ref();
    }

    // Values by the position of their tag (the table keeps a reference,
    // but to those disowned).
    std::unordered_map<const unsigned char*, CORBA::ValueBase*> values;
    std::unordered_set<CORBA::ValueBase*> disowned;
    // Values skipped inside the truncated part of others.
    std::unordered_set<const unsigned char*> skipped;
    // Repository ids and codebases, and id lists, by position.
    std::unordered_map<const unsigned char*, std::string> strings;
    std::unordered_map<const unsigned char*, std::vector<std::string>> lists;
    unsigned depth = 0;
    // Chunk nesting level of the value being read (0: not chunked). The
    // chunk being read is the stream's (InputStream::in_chunk).
    CORBA::Long level = 0;
    // The level an end tag read for an inner value closed down to (it ends
    // the enclosing values too), or 0.
    CORBA::Long closed_to = 0;
};

ReadState& read_state(YV_CDR::InputStream& in)
{
    std::shared_ptr<void>& slot = in.value_state();
    if (!slot)
        slot = std::make_shared<ReadState>();
    return *static_cast<ReadState*>(slot.get());
}

// The position an indirection refers to: before the offset's own position
// and inside the stream.
const unsigned char* read_indirection_target(YV_CDR::InputStream& in)
{
    in.align(4);
    const unsigned char* at = in.cursor();
    const CORBA::Long offset = in.read_long();
    if (offset >= 0 || static_cast<std::size_t>(-static_cast<long long>(offset)) > static_cast<std::size_t>(at - in.begin()))
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
    return at + offset;
}

std::string read_shared_string(YV_CDR::InputStream& in, ReadState& st)
{
    in.align(4);
    const unsigned char* at = in.cursor();
    if (in.read_ulong() == indirection_tag) {
        auto it = st.strings.find(read_indirection_target(in));
        if (it == st.strings.end())
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
        return it->second;
    }
    in.seek(at);
    CORBA::String_var s = in.read_string();
    std::string text(s.in());
    st.strings.emplace(at, text);
    return text;
}

std::vector<std::string> read_id_list(YV_CDR::InputStream& in, ReadState& st)
{
    in.align(4);
    const unsigned char* at = in.cursor();
    const CORBA::ULong n = in.read_ulong();
    if (n == indirection_tag) {
        auto it = st.lists.find(read_indirection_target(in));
        if (it == st.lists.end())
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
        return it->second;
    }
    // An id takes at least 8 octets (length and NUL, or an indirection).
    if (n == 0 || static_cast<std::uint64_t>(n) * 8 > in.remaining())
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
    std::vector<std::string> ids;
    ids.reserve(n);
    for (CORBA::ULong i = 0; i < n; ++i)
        ids.push_back(read_shared_string(in, st));
    st.lists.emplace(at, ids);
    return ids;
}

// Between chunks of a chunked value (after its header or a nested value):
// when a chunk size comes next, enters that chunk; otherwise (a value tag,
// null, indirection or end tag) leaves the octets for whoever reads them,
// and the stream enters the next chunk when state is read.
void enter_chunk(YV_CDR::InputStream& in)
{
    in.not_chunked();
    if (in.remaining() >= 4) {
        const unsigned char* at = in.cursor();
        const CORBA::Long size = in.read_long();
        if (size > 0 && static_cast<CORBA::ULong>(size) < tag_base) {
            if (static_cast<std::size_t>(size) > in.remaining())
                YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
            in.in_chunk(in.cursor() + size);
            return;
        }
        in.seek(at);
    }
    in.in_chunk(nullptr);
}

// Before a value's tag inside a chunked value: true when the tag lies in a
// chunk (the one being read, or one that opens here); false, with the
// stream outside chunks, when the chunk being read ends here (padding
// before a tag may be counted in the chunk or not) and no chunk opens.
bool enter_chunk_for_tag(YV_CDR::InputStream& in)
{
    const unsigned char* end = in.chunk_end();
    in.not_chunked();
    if (end != nullptr) {
        if (in.cursor() > end)
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
        if (in.cursor() != end) {
            in.align(4);
            if (in.cursor() > end)
                YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
            if (in.cursor() < end) {
                in.in_chunk(end);
                return true;
            }
        }
    }
    enter_chunk(in);
    if (in.chunk_end() != nullptr)
        return true;
    in.not_chunked();
    return false;
}

// Holds one reference to a value until handed out.
class Held {
public:
    explicit Held(CORBA::ValueBase* v) : m_v(v) {}
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { CORBA::remove_ref(m_v); }
    CORBA::ValueBase* get() const { return m_v; }
    CORBA::ValueBase* release()
    {
        CORBA::ValueBase* v = m_v;
        m_v = nullptr;
        return v;
    }

private:
    CORBA::ValueBase* m_v;
};

bool has_id(const CORBA::ValueBase* v, const std::string& id)
{
    CORBA::ULong n = 0;
    const char* const* ids = v->_yv_type_ids(n);
    return n != 0 && id == ids[0];
}

// The caller's expectation of a value: the formal type's id, what makes
// an instance of it, and whether factories registered for the ids received
// come first.
struct Formal {
    const char* id;
    std::function<CORBA::ValueBase*()> make;
    bool factories;
};

// An instance for the first id something here can make; `index` tells
// which (a later one truncates). A value without ids is of the formal type.
CORBA::ValueBase* make_instance(std::vector<std::string> ids, const Formal& formal, std::size_t& index)
{
    if (ids.empty() && formal.id != nullptr)
        ids.emplace_back(formal.id);
    Held made(formal.make != nullptr ? formal.make() : nullptr);
    if (ids.empty()) {
        index = 0;
        if (made.get() == nullptr)
            throw CORBA::MARSHAL(minor_no_value_factory, CORBA::COMPLETED_NO);
        return made.release();
    }
    for (index = 0; index < ids.size(); ++index) {
        CORBA::ValueFactoryBase_var factory =
            formal.factories ? ValueFactoryRegistry::instance().find(ids[index].c_str()) : nullptr;
        if (factory.in() != nullptr) {
            if (CORBA::ValueBase* v = factory->create_for_unmarshal())
                return v;
            break;
        }
        if (made.get() != nullptr && has_id(made.get(), ids[index]))
            return made.release();
    }
    throw CORBA::MARSHAL(minor_no_value_factory, CORBA::COMPLETED_NO);
}

CORBA::ValueBase* read_value_at(YV_CDR::InputStream& in, ReadState& st, const Formal& formal, bool skip);

// Whether the next long is the offset of an indirection to a value this
// stream has read or skipped (the cursor stays).
bool refers_to_value(YV_CDR::InputStream& in, const ReadState& st)
{
    const unsigned char* at = in.cursor();
    if (in.remaining() < 4)
        return false;
    const CORBA::Long offset = in.read_long();
    const unsigned char* offset_at = in.cursor() - 4;
    in.seek(at);
    if (offset >= 0 || static_cast<std::size_t>(-static_cast<long long>(offset)) > static_cast<std::size_t>(offset_at - in.begin()))
        return false;
    const unsigned char* target = offset_at + offset;
    return st.values.count(target) != 0 || st.skipped.count(target) != 0;
}

// After a chunked value's state: skips what its instance did not read
// (truncation), chunk by chunk and nested value by nested value, up to
// the end tag that closes it.
void finish_chunked(YV_CDR::InputStream& in, ReadState& st)
{
    const CORBA::Long level = st.level;
    for (;;) {
        if (st.closed_to != 0) {
            if (st.closed_to == level)
                st.closed_to = 0;
            return;
        }
        const unsigned char* end = in.chunk_end();
        in.not_chunked();
        if (end != nullptr) {
            if (in.cursor() > end)
                YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
            in.skip(static_cast<std::size_t>(end - in.cursor()));
        }
        in.align(4);
        const unsigned char* at = in.cursor();
        const CORBA::Long tag = in.read_long();
        // -1 is both the outermost end tag and the indirection tag: it is
        // an indirection when an offset to a value read or skipped before
        // follows.
        if (tag == -1 && refers_to_value(in, st)) {
            in.seek(at);
            CORBA::remove_ref(read_value_at(in, st, Formal{nullptr, nullptr, true}, true));
            continue;
        }
        if (tag < 0) {
            const CORBA::Long closes = -tag;
            if (closes > level)
                YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
            if (closes < level)
                st.closed_to = closes;
            return;
        }
        if (tag > 0 && static_cast<CORBA::ULong>(tag) < tag_base) {
            in.seek(at);
            enter_chunk(in);
            continue;
        }
        // A nested value of the part skipped.
        in.seek(at);
        CORBA::remove_ref(read_value_at(in, st, Formal{nullptr, nullptr, true}, true));
    }
}

CORBA::ValueBase* read_value_at(YV_CDR::InputStream& in, ReadState& st, const Formal& formal, bool skip)
{
    const bool nested_in_chunks = st.level > 0;
    // Inside a chunked value, null and indirections may lie inside a chunk
    // (as omniORB writes them); a value's header lies between chunks.
    const bool inside = nested_in_chunks && enter_chunk_for_tag(in);
    // The chunk a null or indirection lies in: the whole tag inside it.
    const unsigned char* const chunk = in.chunk_end();
    in.align(4);
    const unsigned char* at = in.cursor();
    const CORBA::ULong tag = in.read_ulong();
    if (inside && ((tag != null_tag && tag != indirection_tag) || in.chunk_end() != chunk))
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);

    CORBA::ValueBase* result = nullptr;
    if (tag == null_tag) {
    } else if (tag == indirection_tag) {
        const unsigned char* target = read_indirection_target(in);
        auto it = st.values.find(target);
        if (it != st.values.end()) {
            result = it->second;
            result->_add_ref();
        } else if (!skip || st.skipped.count(target) == 0) {
            // (A value skipped in a truncated one cannot be had again.)
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
        }
    } else {
        if ((tag & 0xffffff00) != tag_base || (tag & 0xf0) != 0 || (tag & tag_type_mask) == 0x04)
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
        const bool chunked = (tag & tag_chunked) != 0;
        if (nested_in_chunks && !chunked)
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
        if (st.depth >= max_value_nesting)
            YV_CDR::InputStream::fail(YV_CDR::minor_nesting);
        if (tag & tag_codebase)
            read_shared_string(in, st);
        std::vector<std::string> ids;
        if ((tag & tag_type_mask) == tag_single_id)
            ids.push_back(read_shared_string(in, st));
        else if ((tag & tag_type_mask) == tag_id_list)
            ids = read_id_list(in, st);

        std::size_t index = 0;
        CORBA::ValueBase* made = skip ? nullptr : make_instance(std::move(ids), formal, index);
        Held made_held(made);
        if ((skip || index > 0) && !chunked)
            // Only chunks tell where state of an unknown type ends.
            throw CORBA::MARSHAL(minor_no_value_factory, CORBA::COMPLETED_NO);
        if (made != nullptr) {
            made->_add_ref();
            st.values.emplace(at, made);
        } else {
            st.skipped.insert(at);
        }

        ++st.depth;
        if (chunked) {
            ++st.level;
            enter_chunk(in);
        }
        if (made != nullptr)
            made->_yv_unmarshal_state(in);
        if (chunked) {
            finish_chunked(in, st);
            --st.level;
        }
        --st.depth;
        result = made_held.release();
    }
    // Held while what follows may still fail.
    Held held(result);
    if (inside && in.chunk_end() != chunk)
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
    if (nested_in_chunks && !inside) {
        if (st.closed_to == 0)
            enter_chunk(in);
        else
            // The end tag closed the enclosing value too: no state follows.
            in.in_chunk(nullptr);
    }
    return held.release();
}

} // namespace

void write_value(YV_CDR::OutputStream& out, const CORBA::ValueBase* v)
{
    WriteState& st = write_state(out);
    // Null and indirections go inside the open chunk of a chunked value
    // (omniORB reads nothing else); a value's header between chunks.
    out.align(4);
    if (v == nullptr) {
        out.write_ulong(null_tag);
        return;
    }
    if (auto it = st.values.find(v); it != st.values.end()) {
        write_indirection(out, it->second);
        return;
    }
    const bool nested_in_chunks = st.level > 0;
    end_chunk(out, st);
    out.align(4);
    CORBA::ULong count = 0;
    const char* const* ids = v->_yv_type_ids(count);
    if (count == 0)
        throw CORBA::MARSHAL(0, CORBA::COMPLETED_NO);
    const bool chunked = nested_in_chunks || v->_yv_is_chunked();
    st.values.emplace(v, out.size());
    out.write_ulong(tag_base | (count > 1 ? tag_id_list : tag_single_id) | (chunked ? tag_chunked : 0));
    if (count > 1)
        out.write_ulong(count);
    for (CORBA::ULong i = 0; i < count; ++i)
        write_shared_string(out, st, ids[i]);
    if (chunked) {
        ++st.level;
        begin_chunk(out, st);
    }
    v->_yv_marshal_state(out);
    if (chunked) {
        end_chunk(out, st);
        if (st.end_tag_at != static_cast<std::size_t>(-1) && st.end_tag_at + 4 == out.size()) {
            // A nested value ended just before: one end tag closes both
            // (omniORB writes it so, and its reader takes nothing else).
            out.patch_ulong(st.end_tag_at, static_cast<CORBA::ULong>(-st.level));
        } else {
            out.align(4);
            st.end_tag_at = out.size();
            out.write_long(-st.level);
        }
        --st.level;
    }
    if (nested_in_chunks)
        begin_chunk(out, st);
}

CORBA::ValueBase* read_value(YV_CDR::InputStream& in, const char* formal_id, CORBA::ValueBase* (*make)())
{
    return read_value_at(in, read_state(in), Formal{formal_id, make != nullptr ? make : std::function<CORBA::ValueBase*()>(), true},
                         false);
}

void disown_read_values(YV_CDR::InputStream& in, bool (*which)(CORBA::ValueBase*))
{
    ReadState& st = read_state(in);
    for (auto& entry : st.values)
        if (st.disowned.count(entry.second) == 0 && which(entry.second)) {
            st.disowned.insert(entry.second);
            entry.second->_remove_ref();
        }
}

CORBA::ValueBase* read_value_made(YV_CDR::InputStream& in, const char* formal_id,
                                  const std::function<CORBA::ValueBase*()>& make)
{
    return read_value_at(in, read_state(in), Formal{formal_id, make, false}, false);
}

void end_base_state(YV_CDR::OutputStream& out)
{
    WriteState& st = write_state(out);
    if (st.level > 0 && st.chunk_open) {
        end_chunk(out, st);
        begin_chunk(out, st);
    }
}

void end_base_state(YV_CDR::InputStream&) {}

} // namespace YV_Cxx
