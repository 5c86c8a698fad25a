// Writes the benchmark's IDL input: a module of shared types, then chains
// of interfaces in which each interface inherits from the one before it.
// Every interface has the same mix of operations (all argument directions,
// strings, structs, sequences, object references, raises clauses, oneway)
// and attributes (one readonly, one writable).
#ifndef YV_BENCHIDL_H
#define YV_BENCHIDL_H

#include <ostream>

class YV_BenchIdl {
public:
    int interfaces = 2000;
    int chain_length = 10;
    int operations = 10;   // per interface; the mix repeats past 10
    int attributes = 2;    // per interface

    void write(std::ostream& out) const;

private:
    void write_types(std::ostream& out) const;
    void write_interface(std::ostream& out, int chain, int level) const;
};

#endif
