// A declaration pointer as the key of a map of declarations already handled.
#ifndef DECLPOINTERHOLDER_H
#define DECLPOINTERHOLDER_H

#include <cstddef>
#include <functional>

class AST_Decl;

struct DeclPointerHolder {
    AST_Decl* decl = nullptr;
};

struct DeclPointerHash {
    std::size_t operator()(const DeclPointerHolder& h) const noexcept { return std::hash<const void*>()(h.decl); }
};

struct DeclPointerEq {
    bool operator()(const DeclPointerHolder& a, const DeclPointerHolder& b) const noexcept { return a.decl == b.decl; }
};

#endif
