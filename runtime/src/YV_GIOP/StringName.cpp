#include "YV_GIOP/StringName.h"

namespace YV_GIOP {

bool StringName::parse(const std::string& text, StringName& name)
{
    name.components.clear();
    if (text.empty())
        return false;
    Component current;
    bool in_kind = false;
    bool seen_dot = false;
    bool any = false;  // the component has a character or a dot
    auto finish = [&]() -> bool {
        if (!any)
            return false;
        name.components.push_back(current);
        current = Component();
        in_kind = seen_dot = any = false;
        return true;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '/') {
            if (!finish())
                return false;
            continue;
        }
        if (c == '.') {
            // "a.b.c" has the id "a.b": only the last dot counts, so ids
            // collect dots until another one shows up.
            if (seen_dot) {
                current.id += '.';
                current.id += current.kind;
                current.kind.clear();
            }
            seen_dot = in_kind = any = true;
            continue;
        }
        if (c == '\\') {
            if (++i == text.size())
                return false;
            c = text[i];
        }
        (in_kind ? current.kind : current.id) += c;
        any = true;
    }
    return finish();
}

std::string StringName::to_string() const
{
    auto escaped = [](const std::string& s) {
        std::string out;
        for (char c : s) {
            if (c == '/' || c == '.' || c == '\\')
                out += '\\';
            out += c;
        }
        return out;
    };
    std::string text;
    for (std::size_t i = 0; i < components.size(); ++i) {
        if (i != 0)
            text += '/';
        const Component& c = components[i];
        text += escaped(c.id);
        if (!c.kind.empty() || c.id.empty())
            text += "." + escaped(c.kind);
    }
    return text;
}

} // namespace YV_GIOP
