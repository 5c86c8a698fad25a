// A token source over a list of tokens: a directive line, a macro argument.
#ifndef PP_VECTORSOURCE_H
#define PP_VECTORSOURCE_H

#include "PP_TokenSource.h"

#include <cstddef>
#include <vector>

class PP_VectorSource : public PP_TokenSource {
public:
    explicit PP_VectorSource(const std::vector<PP_Token>& tokens) : m_tokens(tokens) {}

    void next(PP_Token& tok) override
    {
        if (m_pos < m_tokens.size())
            tok = m_tokens[m_pos++];
        else
            tok = PP_Token();
    }
    bool next_is_lparen() override
    {
        if (m_pos < m_tokens.size() && m_tokens[m_pos].is('(')) {
            ++m_pos;
            return true;
        }
        return false;
    }
    void next_in_args(PP_Token& tok) override { next(tok); }

private:
    const std::vector<PP_Token>& m_tokens;
    std::size_t m_pos = 0;
};

#endif
