#include "PP_FileCache.h"

#include <filesystem>
#include <fstream>
#include <system_error>

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
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return Status::Unreadable;
    auto fresh = std::make_unique<PP_FileEntry>();
    in.seekg(0, std::ios::end);
    const std::streamoff size = in.tellg();
    in.seekg(0, std::ios::beg);
    if (size > 0) {
        fresh->text.resize(static_cast<std::size_t>(size));
        in.read(fresh->text.data(), size);
        if (in.gcount() != size)
            return Status::Unreadable;
    }
    if (in.bad())
        return Status::Unreadable;
    fresh->bad_byte = find_bad_byte(fresh->text);
    entry = fresh.get();
    m_paths.emplace(path, entry);
    m_files.emplace(key, std::move(fresh));
    return Status::Found;
}

PP_FileEntry* PP_FileCache::adopt(std::string text)
{
    auto fresh = std::make_unique<PP_FileEntry>();
    fresh->text = std::move(text);
    fresh->bad_byte = find_bad_byte(fresh->text);
    m_texts.push_back(std::move(fresh));
    return m_texts.back().get();
}

void PP_FileCache::clear()
{
    m_paths.clear();
    m_files.clear();
    m_texts.clear();
}
