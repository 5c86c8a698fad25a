// Names of the naming service in their string form: components separated by
// '/', each "id.kind" (the last unescaped '.' separates them; none: an
// empty kind; "." alone: both empty), with '\' escaping '/', '.' and '\'.
#ifndef YV_GIOP_STRINGNAME_H
#define YV_GIOP_STRINGNAME_H

#include <string>
#include <vector>

namespace YV_GIOP {

struct StringName {
    struct Component {
        std::string id;
        std::string kind;
    };
    std::vector<Component> components;

    // False for a malformed name (empty, an empty component, a dangling
    // escape).
    static bool parse(const std::string& text, StringName& name);
    std::string to_string() const;
};

} // namespace YV_GIOP

#endif
