// The layout of a member function declaration in generated classes, shared
// by the operation and attribute declaration writers:
//
//   [before]<result type>
//   <name>(
//       <type> <parameter>,
//       <type> <parameter>
//   )[after]
//
// A member without parameters is written "<name>()" on one line. The last
// line is not ended.
#ifndef CXXMEMBERDECLARATION_H
#define CXXMEMBERDECLARATION_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

class HHExtraVisit;
class UTL_Indent;

class CxxMemberDeclaration {
public:
    using Parameter = std::pair<std::string, std::string>; // type, name

    CxxMemberDeclaration(std::string result, std::string name) : m_result(std::move(result)), m_name(std::move(name)) {}

    void add_parameter(std::string type, std::string name) { m_params.emplace_back(std::move(type), std::move(name)); }
    // Room for `count` parameters, so that adding them moves none.
    void reserve_parameters(std::size_t count) { m_params.reserve(count); }
    // Text written right after ")": " const" for a reader of a value.
    void set_qualifier(std::string q) { m_qualifier = std::move(q); }
    // Has the name written by `writer` in place of the name text.
    void set_name_writer(std::function<void(std::ostream&)> writer) { m_name_writer = std::move(writer); }

    // Writes the declaration at the indentation's current level; `first`
    // and `second` (either may be null) write around it.
    void write(std::ostream& os, UTL_Indent& indent, HHExtraVisit* first, HHExtraVisit* second) const;

private:
    std::string m_result;
    std::string m_name;
    std::vector<Parameter> m_params;
    std::string m_qualifier;
    std::function<void(std::ostream&)> m_name_writer;
};

#endif
