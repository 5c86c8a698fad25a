#include "CxxTextTemplate.h"

#include <cstring>
#include <deque>
#include <stdexcept>

namespace {

// The kept templates, found by the address of their text: an open-address
// table that doubles when half full.
class KeptTemplates {
public:
    KeptTemplates() : m_slots(1024) {}

    const CxxTextTemplate& find(const char* text, std::size_t size)
    {
        std::size_t i = home(text);
        for (;; i = (i + 1) & (m_slots.size() - 1)) {
            Slot& s = m_slots[i];
            if (s.text == text && s.size == size) {
                if (!s.kept->holds(text, size))
                    *s.kept = CxxTextTemplate(std::string_view(text, size));
                return *s.kept;
            }
            if (!s.text)
                break;
        }
        m_kept.emplace_back(std::string_view(text, size));
        m_slots[i] = Slot{text, size, &m_kept.back()};
        if (++m_used * 2 > m_slots.size())
            grow();
        return m_kept.back();
    }

private:
    struct Slot {
        const char* text = nullptr;
        std::size_t size = 0;
        CxxTextTemplate* kept = nullptr;
    };

    std::size_t home(const char* text) const
    {
        const auto key = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(text));
        return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ULL) >> 32) & (m_slots.size() - 1);
    }

    void grow()
    {
        std::vector<Slot> old(m_slots.size() * 2);
        old.swap(m_slots);
        for (const Slot& s : old) {
            if (!s.text)
                continue;
            std::size_t i = home(s.text);
            while (m_slots[i].text)
                i = (i + 1) & (m_slots.size() - 1);
            m_slots[i] = s;
        }
    }

    std::vector<Slot> m_slots;
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

CxxTextTemplate::CxxTextTemplate(std::string_view text) : m_text(text) { split(m_text, m_pieces); }

bool CxxTextTemplate::holds(const char* text, std::size_t size) const
{
    return size == m_text.size() && std::memcmp(text, m_text.data(), size) == 0;
}
