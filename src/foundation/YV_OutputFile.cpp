#include "YV_OutputFile.h"

#include "YV_Exit.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <map>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t kBufferSize = 1 << 20;

// Files are known by device and inode, so that every spelling of a name,
// and every link to the file, is the same file.
using FileId = std::pair<dev_t, ino_t>;

enum class Taken { Input, Output };

std::map<FileId, Taken>& taken_files()
{
    static std::map<FileId, Taken> files;
    return files;
}

std::vector<std::string>& committed_names()
{
    static std::vector<std::string> names;
    return names;
}

std::string reason(int error_number) { return std::strerror(error_number); }

std::string directory_of(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return std::string();
    return path.substr(0, slash + 1);
}

std::string file_part(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The file that writing `path` replaces: the path itself, or what a
// symbolic link leads to. `direct` is set when it cannot be replaced by a
// rename: a device, a pipe, a link that leads nowhere.
std::string target_of(const std::string& path, bool& direct)
{
    direct = false;
    struct stat st;
    if (::lstat(path.c_str(), &st) != 0)
        return path;
    std::string target = path;
    if (S_ISLNK(st.st_mode)) {
        char* resolved = ::realpath(path.c_str(), nullptr);
        if (!resolved) {
            direct = true;
            return path;
        }
        target = resolved;
        std::free(resolved);
        if (::stat(target.c_str(), &st) != 0)
            return target;
    }
    direct = !S_ISREG(st.st_mode);
    return target;
}

// Why `target` may not be written, or null.
const char* taken_reason(const std::string& target)
{
    struct stat st;
    if (::stat(target.c_str(), &st) != 0 || !S_ISREG(st.st_mode))
        return nullptr;
    const auto it = taken_files().find(FileId(st.st_dev, st.st_ino));
    if (it == taken_files().end())
        return nullptr;
    return it->second == Taken::Input ? "it is an input of this run" : "it was written earlier in this run";
}

// Opens `path` for writing without waiting for a reader when it is a pipe.
int open_direct(const std::string& path)
{
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666);
    if (fd >= 0) {
        const int flags = ::fcntl(fd, F_GETFL);
        if (flags >= 0)
            ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK);
    }
    return fd;
}

// Creates a fresh temporary file beside `target`; -1 with errno set when
// the directory does not allow it.
int create_temp(const std::string& target, std::string& temp)
{
    static unsigned long counter = 0;
    const std::string stem = directory_of(target) + "." + file_part(target) + ".tmp" + std::to_string(::getpid()) + "-";
    for (int attempt = 0; attempt < 100; ++attempt) {
        temp = stem + std::to_string(++counter);
        const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    return -1;
}

} // namespace

// ---- Buffer ----

YV_OutputFile::Buffer::Buffer() : m_storage(kBufferSize) { setp(m_storage.data(), m_storage.data() + m_storage.size()); }

YV_OutputFile::Buffer::~Buffer()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

void YV_OutputFile::Buffer::attach(int fd)
{
    m_fd = fd;
    m_errno = 0;
    m_flushed = 0;
    setp(m_storage.data(), m_storage.data() + m_storage.size());
}

bool YV_OutputFile::Buffer::flush_buffer()
{
    const char* p = pbase();
    std::size_t left = static_cast<std::size_t>(pptr() - pbase());
    m_flushed += left;
    while (left > 0 && m_fd >= 0 && m_errno == 0) {
        const ssize_t n = ::write(m_fd, p, left);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            m_errno = n < 0 ? errno : EIO;
            break;
        }
        p += n;
        left -= static_cast<std::size_t>(n);
    }
    setp(m_storage.data(), m_storage.data() + m_storage.size());
    return m_errno == 0 && m_fd >= 0;
}

bool YV_OutputFile::Buffer::close()
{
    if (m_fd < 0)
        return m_errno == 0;
    flush_buffer();
    if (::close(m_fd) != 0 && m_errno == 0)
        m_errno = errno;
    m_fd = -1;
    return m_errno == 0;
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

// ---- YV_OutputFile ----

YV_OutputFile::YV_OutputFile() : std::ostream(nullptr) { m_buf.serve(*this); }

YV_OutputFile::~YV_OutputFile() { discard(); }

void YV_OutputFile::fail(const std::string& why)
{
    m_error = why;
    setstate(std::ios::failbit);
}

void YV_OutputFile::open(const std::string& path)
{
    discard();
    clear();
    m_path = path;
    m_error.clear();
    m_refused = false;
    bool direct = false;
    m_target = target_of(path, direct);
    if (const char* why = taken_reason(m_target)) {
        m_refused = true;
        fail(why);
        return;
    }
    int fd = -1;
    if (!direct) {
        fd = create_temp(m_target, m_temp);
        if (fd < 0)
            m_temp.clear();
    }
    if (fd < 0)
        fd = open_direct(m_target);
    if (fd < 0) {
        fail(reason(errno));
        return;
    }
    m_buf.attach(fd);
}

bool YV_OutputFile::commit()
{
    if (!is_open()) {
        if (m_error.empty())
            m_error = "the file is not open";
        return false;
    }
    struct stat st;
    const bool regular = ::fstat(m_buf.fd(), &st) == 0 && S_ISREG(st.st_mode);
    if (!m_buf.close()) {
        m_error = reason(m_buf.error_number());
        if (!m_temp.empty())
            ::unlink(m_temp.c_str());
        m_temp.clear();
        return false;
    }
    if (!m_temp.empty()) {
        const int renamed = ::rename(m_temp.c_str(), m_target.c_str());
        const int rename_errno = errno;
        if (renamed != 0)
            ::unlink(m_temp.c_str());
        m_temp.clear();
        if (renamed != 0) {
            m_error = reason(rename_errno);
            return false;
        }
    }
    if (regular)
        taken_files()[FileId(st.st_dev, st.st_ino)] = Taken::Output;
    committed_names().push_back(m_path);
    return true;
}

void YV_OutputFile::close()
{
    if (!commit())
        setstate(std::ios::failbit);
}

void YV_OutputFile::discard()
{
    if (m_buf.fd() >= 0) {
        // What is buffered is dropped, not written.
        ::close(m_buf.fd());
        m_buf.attach(-1);
    }
    if (!m_temp.empty())
        ::unlink(m_temp.c_str());
    m_temp.clear();
}

void YV_OutputFile::open_or_exit(const std::string& path, const std::string& prog_name, const char* what)
{
    open(path);
    if (*this)
        return;
    if (m_refused)
        std::cerr << prog_name << ": error: " << path << " is not replaced: " << m_error << std::endl;
    std::cerr << prog_name << what << path << " for writing." << std::endl;
    yv_exit(99);
}

void YV_OutputFile::commit_or_exit(const std::string& prog_name)
{
    if (commit())
        return;
    std::cerr << prog_name << ": error: cannot write " << m_path << ": " << m_error << std::endl;
    yv_exit(99);
}

void YV_OutputFile::protect(const std::string& path)
{
    struct stat st;
    if (::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode))
        taken_files()[FileId(st.st_dev, st.st_ino)] = Taken::Input;
}

std::vector<std::string> YV_OutputFile::take_committed() { return std::exchange(committed_names(), {}); }

void YV_OutputFile::forget_files()
{
    taken_files().clear();
    committed_names().clear();
}
