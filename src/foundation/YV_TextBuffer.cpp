#include "YV_TextBuffer.h"

#include <ostream>

namespace {

// The stream's word that holds the buffer serve() put there.
int word_index()
{
    static const int index = std::ios_base::xalloc();
    return index;
}

} // namespace

void YV_TextBuffer::serve(std::ostream& os)
{
    os.rdbuf(this);
    os.pword(word_index()) = this;
}

YV_TextBuffer* YV_TextBuffer::of(std::ostream& os)
{
    auto* served = static_cast<YV_TextBuffer*>(os.pword(word_index()));
    if (served && static_cast<std::streambuf*>(served) == os.rdbuf())
        return served;
    return nullptr;
}
