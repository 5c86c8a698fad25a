// A string stream borrowed from a pool for the length of one scope.
// Generators render many small pieces of text (a scoped name, a type) to a
// string before writing them; making a fresh std::ostringstream for each
// costs a locale set-up and allocations. A scratch stream reuses streams
// instead: the constructor takes an empty one from the pool (nested scopes
// get different streams) and the destructor puts it back.
#ifndef YV_SCRATCHSTREAM_H
#define YV_SCRATCHSTREAM_H

#include <memory>
#include <sstream>
#include <string>

class YV_ScratchStream {
public:
    YV_ScratchStream();
    ~YV_ScratchStream();
    YV_ScratchStream(const YV_ScratchStream&) = delete;
    YV_ScratchStream& operator=(const YV_ScratchStream&) = delete;

    std::ostream& stream() { return *m_stream; }
    // The text written so far.
    std::string str() const { return m_stream->str(); }

private:
    std::unique_ptr<std::ostringstream> m_stream;
};

#endif
