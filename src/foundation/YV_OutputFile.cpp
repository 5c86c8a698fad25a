#include "YV_OutputFile.h"

#include <cerrno>
#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr std::size_t kBufferSize = 1 << 20;
}

YV_OutputFile::Buffer::Buffer() : m_storage(kBufferSize) { setp(m_storage.data(), m_storage.data() + m_storage.size()); }

YV_OutputFile::Buffer::~Buffer() { close(); }

bool YV_OutputFile::Buffer::open(const std::string& path)
{
    close();
    m_failed = false;
    m_fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    setp(m_storage.data(), m_storage.data() + m_storage.size());
    return m_fd >= 0;
}

bool YV_OutputFile::Buffer::flush_buffer()
{
    const char* p = pbase();
    std::size_t left = static_cast<std::size_t>(pptr() - pbase());
    while (left > 0 && m_fd >= 0 && !m_failed) {
        ssize_t n = ::write(m_fd, p, left);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            m_failed = true;
            break;
        }
        p += n;
        left -= static_cast<std::size_t>(n);
    }
    setp(m_storage.data(), m_storage.data() + m_storage.size());
    return !m_failed && m_fd >= 0;
}

bool YV_OutputFile::Buffer::close()
{
    if (m_fd < 0)
        return !m_failed;
    bool ok = flush_buffer();
    if (::close(m_fd) != 0)
        ok = false;
    m_fd = -1;
    return ok;
}

YV_OutputFile::Buffer::int_type YV_OutputFile::Buffer::overflow(int_type c)
{
    if (!flush_buffer())
        return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(c);
        pbump(1);
    }
    return traits_type::not_eof(c);
}

std::streamsize YV_OutputFile::Buffer::xsputn(const char* s, std::streamsize n)
{
    std::size_t len = static_cast<std::size_t>(n);
    if (len <= static_cast<std::size_t>(epptr() - pptr())) {
        std::memcpy(pptr(), s, len);
        pbump(static_cast<int>(len));
        return n;
    }
    std::streamsize done = 0;
    while (done < n) {
        std::size_t room = static_cast<std::size_t>(epptr() - pptr());
        if (room == 0) {
            if (!flush_buffer())
                return done;
            continue;
        }
        std::size_t chunk = std::min(room, static_cast<std::size_t>(n - done));
        std::memcpy(pptr(), s + done, chunk);
        pbump(static_cast<int>(chunk));
        done += static_cast<std::streamsize>(chunk);
    }
    return done;
}

int YV_OutputFile::Buffer::sync() { return flush_buffer() ? 0 : -1; }

YV_OutputFile::YV_OutputFile() : std::ostream(nullptr) { rdbuf(&m_buf); }

YV_OutputFile::~YV_OutputFile() { m_buf.close(); }

void YV_OutputFile::open(const std::string& path)
{
    clear();
    if (!m_buf.open(path))
        setstate(std::ios::failbit);
}

void YV_OutputFile::close()
{
    if (!m_buf.close())
        setstate(std::ios::failbit);
}
