#include "YV_TextBuffer.h"

#include <ostream>

YV_TextBuffer* YV_TextBuffer::of(std::ostream& os) { return dynamic_cast<YV_TextBuffer*>(os.rdbuf()); }
