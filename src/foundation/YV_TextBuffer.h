// A stream buffer that generated text can be copied into directly.
//
// The C++ text writer puts millions of short pieces on its stream; going
// through std::streambuf::sputn costs a virtual call per piece. A buffer
// derived from this class lets the writer copy a piece into the put area
// itself when it fits, and falls back to xsputn (which writes the area out)
// when it does not.
#ifndef YV_TEXTBUFFER_H
#define YV_TEXTBUFFER_H

#include <cstdint>
#include <cstring>
#include <streambuf>

class YV_TextBuffer : public std::streambuf {
public:
    void append(const char* text, std::size_t size)
    {
        if (size <= static_cast<std::size_t>(epptr() - pptr())) {
            copy(pptr(), text, size);
            pbump(static_cast<int>(size));
        } else {
            xsputn(text, static_cast<std::streamsize>(size));
        }
    }

    // Copies `size` characters; most pieces are a few bytes long, and a
    // library call per piece would cost more than the copy. Up to 16 bytes
    // are moved as two words from each end (overlapping when shorter).
    static void copy(char* to, const char* from, std::size_t size)
    {
        if (size > 16) {
            std::memcpy(to, from, size);
        } else if (size >= 8) {
            copy_ends<std::uint64_t>(to, from, size);
        } else if (size >= 4) {
            copy_ends<std::uint32_t>(to, from, size);
        } else if (size >= 2) {
            copy_ends<std::uint16_t>(to, from, size);
        } else if (size == 1) {
            *to = *from;
        }
    }

    // Makes this the buffer of `os` and marks it there, so that of() finds
    // it without a dynamic_cast (writers are made by the million).
    void serve(std::ostream& os);

    // The text buffer behind `os` when it was put there by serve(), else
    // null (the stream's buffer is of another kind, or was replaced).
    static YV_TextBuffer* of(std::ostream& os);

private:
    template <class Word>
    static void copy_ends(char* to, const char* from, std::size_t size)
    {
        Word head, tail;
        std::memcpy(&head, from, sizeof head);
        std::memcpy(&tail, from + size - sizeof tail, sizeof tail);
        std::memcpy(to, &head, sizeof head);
        std::memcpy(to + size - sizeof tail, &tail, sizeof tail);
    }
};

#endif
