#include "YV_StreamRedirect.h"

YV_StreamRedirect::YV_StreamRedirect(std::ostream& from, std::ostream& to) : m_from(from), m_saved(from.rdbuf())
{
    m_from.flush();
    m_from.rdbuf(to.rdbuf());
}

YV_StreamRedirect::~YV_StreamRedirect()
{
    m_from.flush();
    m_from.rdbuf(m_saved);
}
