#include "TableReader.h"

#include "YV_hash_string.h"

#include <regex>
#include <set>
#include <sstream>

namespace tabletest {

namespace {

std::string trim(const std::string& s)
{
    const std::size_t b = s.find_first_not_of(' ');
    return b == std::string::npos ? std::string() : s.substr(b);
}

std::vector<std::string> split_lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

} // namespace

std::map<std::string, Table> read_tables(const std::string& cxx)
{
    static const std::regex head(R"(^(\S+)::_lookup_dispatcher\($)");
    static const std::regex entry(R"(^static YV_Cxx_HashEntry _entry_(\d+)_(\d+) = $)");
    std::map<std::string, Table> tables;
    const std::vector<std::string> lines = split_lines(cxx);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::smatch m;
        if (!std::regex_match(lines[i], m, head))
            continue;
        Table& t = tables[m[1]];
        t.skeleton = m[1];
        for (++i; i < lines.size() && lines[i] != "}"; ++i) {
            const std::string line = trim(lines[i]);
            std::smatch e;
            if (std::regex_match(line, e, entry) && i + 5 < lines.size()) {
                Entry en;
                en.slot = std::stoi(e[1]);
                en.depth = std::stoi(e[2]);
                const std::string key = trim(lines[i + 2]);
                en.key = key.substr(1, key.size() - 3);  // "key",
                const std::string value = trim(lines[i + 3]);
                en.value = value.substr(0, value.size() - 1);
                en.next = trim(lines[i + 4]);
                t.entries.push_back(en);
                i += 5;
            } else if (line == "static YV_Cxx_HashEntry *_raw_table[] = ") {
                std::vector<std::string> raw;
                for (i += 2; i < lines.size() && trim(lines[i]) != "};"; ++i)
                    raw.push_back(lines[i]);
                for (std::size_t r = 0; r < raw.size(); ++r) {
                    const bool ends_in_comma = raw[r].size() >= 2 && raw[r].compare(raw[r].size() - 2, 2, ", ") == 0;
                    if (ends_in_comma != (r + 1 < raw.size()))
                        t.full_lines_end_in_comma = false;
                    std::istringstream items(trim(raw[r]));
                    int count = 0;
                    for (std::string item; std::getline(items, item, ',');) {
                        item = trim(item);
                        if (!item.empty()) {
                            t.slots.push_back(item);
                            ++count;
                        }
                    }
                    t.slot_line_lengths.push_back(count);
                }
            } else if (line == "_raw_table,") {
                t.lookup_count = std::stoi(trim(lines[i + 1]));
            }
        }
    }
    return tables;
}

std::vector<std::string> searchable_keys(const Table& t, std::vector<std::string>& problems)
{
    std::map<std::string, const Entry*> by_name;
    for (const Entry& e : t.entries)
        by_name["&_entry_" + std::to_string(e.slot) + "_" + std::to_string(e.depth)] = &e;
    std::vector<std::string> keys;
    std::set<std::string> seen;
    const std::uint32_t count = static_cast<std::uint32_t>(t.slots.size());
    for (std::uint32_t s = 0; s < count; ++s) {
        std::string link = t.slots[s];
        int depth = 0;
        while (link != "0") {
            auto found = by_name.find(link);
            if (found == by_name.end()) {
                problems.push_back(t.skeleton + ": dangling link " + link);
                break;
            }
            const Entry& e = *found->second;
            if (e.slot != static_cast<int>(s) || e.depth != depth)
                problems.push_back(t.skeleton + ": " + link + " reached from slot " + std::to_string(s));
            if (YV_hash_slot(e.key.c_str(), count) != s)
                problems.push_back(t.skeleton + ": key " + e.key + " stands in slot " + std::to_string(s));
            if (!seen.insert(e.key).second)
                problems.push_back(t.skeleton + ": key " + e.key + " twice");
            keys.push_back(e.key);
            link = e.next;
            ++depth;
        }
    }
    if (keys.size() != t.entries.size())
        problems.push_back(t.skeleton + ": " + std::to_string(t.entries.size() - keys.size()) + " entries not reachable");
    return keys;
}

} // namespace tabletest
