#include "PP_FileCache.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

std::size_t PP_FileCache::find_bad_byte(const std::string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (c < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f' && c != '\v')
            return i;
    }
    return PP_FileEntry::kNoBadByte;
}

PP_FileCache::Status PP_FileCache::load(const std::string& path, PP_FileEntry*& entry)
{
    auto known = m_paths.find(path);
    if (known != m_paths.end()) {
        entry = known->second;
        return entry ? Status::Found : Status::Missing;
    }
    std::error_code ec;
    std::string key;
    if (fs::is_regular_file(path, ec))
        key = fs::canonical(path, ec).string();
    if (key.empty() || ec) {
        m_paths.emplace(path, nullptr);
        return Status::Missing;
    }
    auto it = m_files.find(key);
    if (it != m_files.end()) {
        entry = it->second.get();
        m_paths.emplace(path, entry);
        return Status::Found;
    }
    auto fresh = std::make_unique<PP_FileEntry>();
    const Status read = read_regular_file(path, m_budget, fresh->text);
    if (read != Status::Found)
        return read;
    m_budget -= fresh->text.size();
    fresh->bad_byte = find_bad_byte(fresh->text);
    entry = fresh.get();
    m_paths.emplace(path, entry);
    m_files.emplace(key, std::move(fresh));
    return Status::Found;
}

PP_FileCache::Status PP_FileCache::read_regular_file(const std::string& path, std::size_t max, std::string& text)
{
    // Non-blocking, so that a pipe put in the file's place after it was
    // looked at cannot make the open wait; it is refused below.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return Status::Unreadable;
    struct stat st;
    Status status = ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) ? Status::Found : Status::Unreadable;
    if (status == Status::Found && static_cast<std::uintmax_t>(st.st_size) > max)
        status = Status::TooLarge;
    if (status == Status::Found) {
        text.clear();
        text.reserve(static_cast<std::size_t>(st.st_size));
        // The size is only a hint: some files grow, or have none.
        char block[65536];
        for (;;) {
            const ssize_t n = ::read(fd, block, sizeof block);
            if (n < 0 && errno == EINTR)
                continue;
            if (n <= 0) {
                if (n < 0)
                    status = Status::Unreadable;
                break;
            }
            if (static_cast<std::size_t>(n) > max - text.size()) {
                status = Status::TooLarge;
                break;
            }
            text.append(block, static_cast<std::size_t>(n));
        }
    }
    ::close(fd);
    return status;
}

PP_FileEntry* PP_FileCache::adopt(std::string text)
{
    auto fresh = std::make_unique<PP_FileEntry>();
    fresh->text = std::move(text);
    fresh->bad_byte = find_bad_byte(fresh->text);
    m_texts.push_back(std::move(fresh));
    return m_texts.back().get();
}

void PP_FileCache::clear(std::size_t budget)
{
    m_budget = budget;
    m_paths.clear();
    m_files.clear();
    m_texts.clear();
}
