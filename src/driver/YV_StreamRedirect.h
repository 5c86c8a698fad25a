// While it exists, whatever is written on one stream goes to another
// stream's buffer instead. Used to show on standard output the usage text
// that back ends write on std::cerr.
#ifndef YV_STREAMREDIRECT_H
#define YV_STREAMREDIRECT_H

#include <ostream>

class YV_StreamRedirect {
public:
    YV_StreamRedirect(std::ostream& from, std::ostream& to);
    ~YV_StreamRedirect();
    YV_StreamRedirect(const YV_StreamRedirect&) = delete;
    YV_StreamRedirect& operator=(const YV_StreamRedirect&) = delete;

private:
    std::ostream& m_from;
    std::streambuf* m_saved;
};

#endif
