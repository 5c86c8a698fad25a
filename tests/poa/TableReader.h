// Reads the dispatch tables back out of a generated implementation file, so
// that tests can check them the way the runtime searches them.
#ifndef TABLEREADER_H
#define TABLEREADER_H

#include <map>
#include <string>
#include <vector>

namespace tabletest {

struct Entry {
    int slot = -1;
    int depth = -1;
    std::string key;
    std::string value;     // the dispatch function
    std::string next;      // "0" or "&_entry_<slot>_<depth+1>"
};

struct Table {
    std::string skeleton;                  // POA_Bank::Account
    std::vector<Entry> entries;            // in the order written
    std::vector<std::string> slots;        // "&_entry_<s>_0" or "0", in slot order
    std::vector<int> slot_line_lengths;    // elements per line of the slot array
    int lookup_count = -1;                 // the slot count handed to the lookup
    // Every line of the slot array but the last ends in ", "; the last
    // ends with its element.
    bool full_lines_end_in_comma = true;
};

// Every _lookup_dispatcher of the file, by skeleton class.
std::map<std::string, Table> read_tables(const std::string& cxx);

// The keys that the runtime finds along each slot's chain, as it would:
// start at the slot's entry and follow the next pointers. Reports in
// `problems` every inconsistency (a key in the wrong slot, a dangling or
// missing link, a duplicate key).
std::vector<std::string> searchable_keys(const Table& t, std::vector<std::string>& problems);

} // namespace tabletest

#endif
