// The narrowing and lookup that every visitor factory class shares.
//
// A factory class F derives from VisitorFactoryT<F> and declares
//     static const char* const FFKey;   // its registration key
//     static char narrow_tag;           // its tag: only the address counts
// Lookup goes by key first, then by tag, so a factory registered under a
// key is never taken for another class.
#ifndef VISITORFACTORYT_H
#define VISITORFACTORYT_H

#include "VisitorFF.h"
#include "VisitorFactory.h"

template <class F>
class VisitorFactoryT : public VisitorFactory {
public:
    void* local_narrow(char* tag) override { return tag == &F::narrow_tag ? static_cast<F*>(this) : nullptr; }

    static F* narrow(VisitorFactory* f) { return f ? static_cast<F*>(f->local_narrow(&F::narrow_tag)) : nullptr; }

    static F* find_factory(VisitorFF* ff) { return ff ? narrow(ff->findFactory(F::FFKey)) : nullptr; }
};

#endif
