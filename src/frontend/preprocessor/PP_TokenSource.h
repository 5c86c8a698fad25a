// What the macro expander reads unexpanded tokens from: the files being
// preprocessed, one directive line, or one macro argument.
#ifndef PP_TOKENSOURCE_H
#define PP_TOKENSOURCE_H

#include "PP_Token.h"

class PP_TokenSource {
public:
    virtual ~PP_TokenSource() = default;
    // The next token; kind End when the source is exhausted.
    virtual void next(PP_Token& tok) = 0;
    // Consumes the next token and answers true when it is '(' (the call of a
    // function-like macro); otherwise consumes nothing that matters and
    // answers false.
    virtual bool next_is_lparen() = 0;
    // The next token of a macro call's arguments; kind End when the call
    // cannot go on (end of the line or file, a back-end block).
    virtual void next_in_args(PP_Token& tok) = 0;
};

#endif
