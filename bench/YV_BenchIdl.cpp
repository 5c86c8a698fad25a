#include "YV_BenchIdl.h"

#include <string>

namespace {

std::string interface_name(int chain, int level) { return "C" + std::to_string(chain) + "_" + std::to_string(level); }

// Operation `k` of the interface at `level`: the level keeps the names of a
// chain distinct, since IDL does not let a derived interface redefine an
// inherited operation.
std::string operation(int k, int level, const std::string& self)
{
    const std::string n = "_" + std::to_string(k) + "_" + std::to_string(level);
    switch (k % 10) {
    case 0: return "long add" + n + "(in long a, in long b);";
    case 1: return "string echo" + n + "(in string text);";
    case 2: return "void move" + n + "(in Types::Point from, out Types::Point to);";
    case 3: return "Types::Points path" + n + "(in Types::Points points, inout long count);";
    case 4: return "double root" + n + "(in double x) raises (Types::Failed);";
    case 5: return "boolean test" + n + "(in boolean flag, in char c, in octet o, in wstring w);";
    case 6: return "Types::Names rename" + n + "(inout Types::Names names) raises (Types::Failed, Types::Busy);";
    case 7: return "oneway void notify" + n + "(in string message);";
    case 8: return "unsigned long long count" + n + "(in unsigned long long from, out short step);";
    default: return self + " peer" + n + "(in " + self + " other, in Types::Shape shape, out any extra);";
    }
}

} // namespace

void YV_BenchIdl::write(std::ostream& out) const
{
    write_types(out);
    const int chains = (interfaces + chain_length - 1) / chain_length;
    int written = 0;
    for (int c = 0; c < chains && written < interfaces; ++c) {
        out << "module Chain" << c << " {\n";
        for (int level = 0; level < chain_length && written < interfaces; ++level, ++written)
            write_interface(out, c, level);
        out << "};\n\n";
    }
}

void YV_BenchIdl::write_types(std::ostream& out) const
{
    out << "// Benchmark input: " << interfaces << " interfaces in inheritance chains " << chain_length
        << " deep.\n"
           "module Types {\n"
           "    struct Point { long x; long y; double weight; };\n"
           "    typedef sequence<Point> Points;\n"
           "    typedef sequence<string> Names;\n"
           "    enum Kind { circle, square, polygon };\n"
           "    union Shape switch (Kind) {\n"
           "        case circle: double radius;\n"
           "        case square: double side;\n"
           "        case polygon: Points corners;\n"
           "    };\n"
           "    exception Failed { string reason; long code; };\n"
           "    exception Busy {};\n"
           "};\n\n";
}

void YV_BenchIdl::write_interface(std::ostream& out, int chain, int level) const
{
    const std::string self = interface_name(chain, level);
    out << "    interface " << self;
    if (level > 0)
        out << " : " << interface_name(chain, level - 1);
    out << " {\n";
    for (int a = 0; a < attributes; ++a)
        out << "        " << (a % 2 == 0 ? "readonly attribute" : "attribute") << (a % 4 < 2 ? " string" : " Types::Point")
            << " attr_" << a << '_' << level << ";\n";
    for (int k = 0; k < operations; ++k)
        out << "        " << operation(k, level, self) << '\n';
    out << "    };\n\n";
}
