#include "YV_ScratchStream.h"

#include <vector>

namespace {

std::vector<std::unique_ptr<std::ostringstream>>& pool()
{
    thread_local std::vector<std::unique_ptr<std::ostringstream>> streams;
    return streams;
}

} // namespace

YV_ScratchStream::YV_ScratchStream()
{
    auto& free = pool();
    if (free.empty()) {
        m_stream = std::make_unique<std::ostringstream>();
    } else {
        m_stream = std::move(free.back());
        free.pop_back();
    }
}

YV_ScratchStream::~YV_ScratchStream()
{
    m_stream->str(std::string());
    m_stream->clear();
    pool().push_back(std::move(m_stream));
}
