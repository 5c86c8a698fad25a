// Bounds on what one input may make the front end do. Every cost that an
// input could make grow faster than its own size (inclusion fan-out, macro
// amplification, inherited members) or without end (nesting) has one; the
// defaults are far beyond real IDL, and each can be raised on the command
// line as -fmax-<name>=<n> (docs/limits.md lists them). A limit that is
// reached is reported where it happened, and the input gets no output.
#ifndef IDL_LIMITS_H
#define IDL_LIMITS_H

#include <cstddef>
#include <string>

struct IDL_Limits {
    // Files open inside each other, the main file included.
    std::size_t include_depth = 200;
    // Files entered through #include while one input is preprocessed
    // (guarded and #pragma once files that are skipped do not count).
    std::size_t includes = 10000;
    // Bytes of preprocessed text made from one input; also the bytes of
    // the files read for it, all together.
    std::size_t preprocessed_size = std::size_t(32) << 20;
    // Tokens that one macro use may expand to (with everything it expands
    // in turn); a token made by # or ## counts its length in bytes.
    std::size_t macro_expansion = std::size_t(1) << 20;
    // The same, summed over all macro uses of one input, #if, #include and
    // #line lines included.
    std::size_t macro_tokens = std::size_t(4) << 20;
    // Macro calls nested inside macro arguments.
    std::size_t macro_arg_depth = 200;
    // Parentheses and ?: nested in an #if expression.
    std::size_t if_depth = 256;
    // Scopes, types and constant expressions nested in the IDL text.
    std::size_t nesting = 256;
    // For every interface and value type, its ancestors (direct and
    // indirect bases and supported interfaces) plus the operations and
    // attributes they declare, summed over the input: what back ends
    // write again for every derived type.
    std::size_t inherited = 1000000;
    // Typedefs naming typedefs, one after the other (looking through the
    // arrays and sequences between them).
    std::size_t typedef_depth = 256;

    // One limit as the command line names it.
    struct Entry {
        const char* name;                  // -fmax-<name>=
        std::size_t IDL_Limits::*member;
        const char* meaning;               // for --help
    };
    static const Entry* begin_entries();
    static const Entry* end_entries();

    // Sets the limit called `name` to `value`; false when no limit has
    // that name.
    bool set(const std::string& name, std::size_t value);
    // "-fmax-<name>", the option that raises `member`.
    static std::string option_of(std::size_t IDL_Limits::*member);
};

#endif
