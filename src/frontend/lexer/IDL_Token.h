// One token of the IDL text. Identifier and literal tokens keep their
// spelling as a view into the lexer's text; decoded literal values and
// back-end block texts live in the lexer's literal table.
#ifndef IDL_TOKEN_H
#define IDL_TOKEN_H

#include <cstdint>
#include <string_view>

enum class IDL_Tok : unsigned char {
    End,
    Identifier,
    IntLit,
    FloatLit,
    FixedLit,
    CharLit,
    WCharLit,
    StringLit,
    WStringLit,
    CBEBlock,   // %{NAME ... %}: text is the name, the literal table holds the body

    // Punctuation.
    Semi, LBrace, RBrace, Colon, ColonColon, Comma, Assign, Plus, Minus, Star, Slash, Percent,
    Tilde, Pipe, Caret, Amp, Shl, Shr, LParen, RParen, Lt, Gt, LBracket, RBracket,

    // Keywords.
    KwAbstract, KwAny, KwAttribute, KwBoolean, KwCase, KwChar, KwConst, KwContext, KwCustom,
    KwDefault, KwDouble, KwEnum, KwException, KwFactory, KwFalse, KwFixed, KwFloat, KwGetraises,
    KwIn, KwInout, KwInterface, KwLocal, KwLong, KwModule, KwNative, KwObject, KwOctet, KwOneway,
    KwOut, KwPrivate, KwPublic, KwRaises, KwReadonly, KwSequence, KwSetraises, KwShort, KwString,
    KwStruct, KwSupports, KwSwitch, KwTrue, KwTruncatable, KwTypedef, KwTypeid, KwTypeprefix,
    KwUnsigned, KwUnion, KwValueBase, KwValuetype, KwVoid, KwWchar, KwWstring
};

struct IDL_Token {
    IDL_Tok kind = IDL_Tok::End;
    // An identifier written with a leading '_' (the '_' is not in `text`).
    bool escaped = false;
    // The spelling: identifiers without the escaping '_', literals as
    // written, the back end's name for a back-end block.
    std::string_view text;
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    // Index into the lexer's file table.
    std::uint32_t file = 0;
    // Index into the lexer's literal table (strings, characters, blocks).
    std::uint32_t value = 0;
};

#endif
