// The files read during a run, each read from disk once and known by its
// canonical path, so that different spellings of one file are one entry.
#ifndef PP_FILECACHE_H
#define PP_FILECACHE_H

#include "PP_FileEntry.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class PP_FileCache {
public:
    enum class Status { Found, Missing, Unreadable, TooLarge };

    // The regular file at `path`, read on first use. `entry` is set when
    // the status is Found. TooLarge when reading it would take the bytes
    // read since clear() beyond the budget.
    Status load(const std::string& path, PP_FileEntry*& entry);
    // An entry for a text held in memory (never shared).
    PP_FileEntry* adopt(std::string text);
    // Forgets every file; `budget` bytes may be read from now on.
    void clear(std::size_t budget = static_cast<std::size_t>(-1));

    // Offset of the first byte of `text` that has no place in a text file.
    static std::size_t find_bad_byte(const std::string& text);

private:
    // Reads the whole of `path` into `text`, at most `max` bytes.
    static Status read_regular_file(const std::string& path, std::size_t max, std::string& text);

    // Entries by canonical path.
    std::map<std::string, std::unique_ptr<PP_FileEntry>> m_files;
    // Paths already looked up, as written: the entry, or null when missing.
    std::unordered_map<std::string, PP_FileEntry*> m_paths;
    std::vector<std::unique_ptr<PP_FileEntry>> m_texts;
    // Bytes that may still be read.
    std::size_t m_budget = static_cast<std::size_t>(-1);
};

#endif
