// Splits a back end's option text and hands out its options one at a time.
//
// The text is split at every ':' and empty elements are skipped. An element
// is an option when it begins with '-' or '+'; its second character is the
// option letter. getOptString(grammar) returns the next option's letter, also
// for letters the grammar does not list, and -1 when the text is exhausted.
// Elements that are not options are skipped. optarg() is the rest of the same
// element after the letter, or null when nothing follows the letter; it is
// never taken from the next element. An element that is only a sign has no
// letter and is skipped.
#ifndef UTL_ARGPARSER_H
#define UTL_ARGPARSER_H

#include <string>
#include <vector>

class UTL_ArgParser {
public:
    void initGetOptString(const char* text);
    int getOptString(const char* grammar);
    const char* optarg() const { return m_has_arg ? m_arg.c_str() : nullptr; }
    // The sign of the option last returned: '-' or '+'.
    char optsign() const { return m_sign; }

private:
    std::vector<std::string> m_elements;
    std::size_t m_next = 0;
    std::string m_arg;
    bool m_has_arg = false;
    char m_sign = '-';
};

#endif
