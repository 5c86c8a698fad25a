#include "CxxTextTemplate.h"

#include <cstdint>
#include <cstring>
#include <deque>
#include <link.h>
#include <stdexcept>

namespace {

// Whether the `size` characters at `text` lie in a segment that a loaded
// object maps read-only: the literals of the program and its libraries.
bool in_read_only_image(const char* text, std::size_t size)
{
    struct Query {
        std::uintptr_t begin;
        std::uintptr_t end;
        bool found;
    } query{reinterpret_cast<std::uintptr_t>(text), reinterpret_cast<std::uintptr_t>(text) + size, false};
    dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* data) -> int {
            auto* q = static_cast<Query*>(data);
            for (ElfW(Half) i = 0; i < info->dlpi_phnum; ++i) {
                const ElfW(Phdr)& segment = info->dlpi_phdr[i];
                if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W) != 0)
                    continue;
                const std::uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
                if (q->begin >= begin && q->end <= begin + segment.p_memsz) {
                    q->found = true;
                    return 1;
                }
            }
            return 0;
        },
        &query);
    return query.found;
}

class KeptTemplates;
// The table below while it exists: the libraries' guards may outlive it at
// exit.
KeptTemplates* kept_table = nullptr;

// The kept templates, found by the address of their text: an open-address
// table that doubles when half full.
//
// A text in a read-only segment of a loaded object cannot change while
// that object stays loaded, so it is compared with its copy only when first
// met, and again after any library has been unloaded; any other text is
// compared at every use.
class KeptTemplates {
public:
    KeptTemplates() : m_slots(1024) { kept_table = this; }
    ~KeptTemplates() { kept_table = nullptr; }
    KeptTemplates(const KeptTemplates&) = delete;
    KeptTemplates& operator=(const KeptTemplates&) = delete;

    const CxxTextTemplate& find(const char* text, std::size_t size)
    {
        for (std::size_t i = home(text);; i = (i + 1) & m_mask) {
            const Slot& s = m_slots[i];
            if (s.text == text && s.size == size && s.trust == Trust::Fixed)
                return *s.kept;
            if (s.text == text || !s.text)
                return find_or_add(text, size);
        }
    }

    void recheck()
    {
        for (Slot& s : m_slots)
            if (s.trust == Trust::Fixed)
                s.trust = Trust::Unchecked;
    }

private:
    enum class Trust : std::uint8_t { Unchecked, Fixed, Changeable };

    struct Slot {
        const char* text = nullptr;
        std::size_t size = 0;
        CxxTextTemplate* kept = nullptr;
        Trust trust = Trust::Unchecked;
    };

    // A text not trusted, or not kept yet.
    [[gnu::noinline]] const CxxTextTemplate& find_or_add(const char* text, std::size_t size)
    {
        std::size_t i = home(text);
        for (;; i = (i + 1) & m_mask) {
            Slot& s = m_slots[i];
            if (s.text == text && s.size == size) {
                check(s);
                return *s.kept;
            }
            if (!s.text)
                break;
        }
        m_kept.emplace_back(std::string_view(text, size));
        m_slots[i] = Slot{text, size, &m_kept.back(), trust_of(text, size)};
        if (++m_used * 2 > m_slots.size())
            grow();
        return m_kept.back();
    }

    static Trust trust_of(const char* text, std::size_t size)
    {
        return in_read_only_image(text, size) ? Trust::Fixed : Trust::Changeable;
    }

    static void check(Slot& s)
    {
        if (!s.kept->holds(s.text, s.size))
            *s.kept = CxxTextTemplate(std::string_view(s.text, s.size));
        if (s.trust == Trust::Unchecked)
            s.trust = trust_of(s.text, s.size);
    }

    std::size_t home(const char* text) const
    {
        const auto key = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(text));
        return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ULL) >> 32) & m_mask;
    }

    void grow()
    {
        std::vector<Slot> old(m_slots.size() * 2);
        old.swap(m_slots);
        m_mask = m_slots.size() - 1;
        for (const Slot& s : old) {
            if (!s.text)
                continue;
            std::size_t i = home(s.text);
            while (m_slots[i].text)
                i = (i + 1) & m_mask;
            m_slots[i] = s;
        }
    }

    std::vector<Slot> m_slots;
    std::size_t m_mask = 1023;
    std::deque<CxxTextTemplate> m_kept;  // stable addresses for the slots
    std::size_t m_used = 0;
};

} // namespace

void CxxTextTemplate::split(std::string_view text, std::vector<Piece>& pieces)
{
    pieces.clear();
    const auto piece = [&pieces](Piece::Kind kind, std::size_t begin, std::size_t length) {
        pieces.push_back(Piece{kind, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(length)});
    };
    std::size_t pos = 0;
    const std::size_t size = text.size();
    while (pos < size) {
        std::size_t stop = pos;
        while (stop < size && text[stop] != '$' && text[stop] != '\n')
            ++stop;
        if (stop == size) {
            piece(Piece::Run, pos, size - pos);
            return;
        }
        if (text[stop] == '\n') {
            piece(Piece::Line, pos, stop + 1 - pos);
            pos = stop + 1;
            continue;
        }
        if (stop > pos)
            piece(Piece::Run, pos, stop - pos);
        const std::size_t end = text.find('$', stop + 1);
        if (end == std::string_view::npos)
            throw std::logic_error("CxxPrinter: unterminated $ in \"" + std::string(text) + "\"");
        if (end == stop + 1)
            piece(Piece::Run, stop, 1);
        else
            piece(Piece::Value, stop + 1, end - stop - 1);
        pos = end + 1;
    }
}

const CxxTextTemplate& CxxTextTemplate::of_literal(const char* text, std::size_t size)
{
    static KeptTemplates kept;
    return kept.find(text, size);
}

void CxxTextTemplate::library_unloaded()
{
    if (kept_table)
        kept_table->recheck();
}

CxxTextTemplate::CxxTextTemplate(std::string_view text) : m_text(text) { split(m_text, m_pieces); }

void CxxTextTemplate::assign(std::string_view text)
{
    m_text.assign(text.data(), text.size());
    m_layouts_used = 0;
    m_by_level.fill(0);
    split(m_text, m_pieces);
}

bool CxxTextTemplate::holds(const char* text, std::size_t size) const
{
    return size == m_text.size() && std::memcmp(text, m_text.data(), size) == 0;
}

const CxxTextTemplate::Layout& CxxTextTemplate::add_layout(int level, int width) const
{
    for (std::size_t i = 0; i < m_layouts_used; ++i)
        if (m_layouts[i].level == level)
            return m_layouts[i];
    if (m_layouts_used == m_layouts.size())
        m_layouts.emplace_back();
    Layout& made = m_layouts[m_layouts_used++];
    made.level = level;
    lay_out(made, width);
    if (static_cast<unsigned>(level) < m_by_level.size() && m_layouts_used <= 255)
        m_by_level[static_cast<unsigned>(level)] = static_cast<std::uint8_t>(m_layouts_used);
    return made;
}

// Within a chunk the line position is known: a piece that follows a line
// end starts a line, and takes the indentation unless it holds only its
// own line end. Only the chunk's first piece waits for the writer's
// position. A value ends the chunk: an empty one writes nothing and leaves
// the position as it was.
void CxxTextTemplate::lay_out(Layout& layout, int width) const
{
    const std::size_t blanks = static_cast<std::size_t>(layout.level) * static_cast<std::size_t>(width);
    layout.text.clear();
    layout.steps.clear();
    Step* chunk = nullptr;
    for (const Piece& piece : m_pieces) {
        if (piece.kind == Piece::Value) {
            layout.steps.push_back(Step{Step::Value, false, false, 0, piece.begin, piece.length});
            chunk = nullptr;
            continue;
        }
        const bool lone_line_end = piece.kind == Piece::Line && piece.length == 1;
        if (!chunk) {
            layout.steps.push_back(Step{Step::Chunk, !lone_line_end, false, 0,
                                        static_cast<std::uint32_t>(layout.text.size()), 0});
            chunk = &layout.steps.back();
        } else if (chunk->ends_line && !lone_line_end) {
            layout.text.append(blanks, ' ');
        }
        layout.text.append(m_text, piece.begin, piece.length);
        chunk->ends_line = piece.kind == Piece::Line;
        chunk->length = static_cast<std::uint32_t>(layout.text.size() - chunk->begin);
    }
}
