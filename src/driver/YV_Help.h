// The text of --help: the driver's usage, then for every back end the
// loader can find a heading and the back end's own usage, then the names of
// the C++ mapping's -x switches. Everything goes to one stream.
#ifndef YV_HELP_H
#define YV_HELP_H

#include <iosfwd>

class YV_BackendLoader;

class YV_Help {
public:
    explicit YV_Help(YV_BackendLoader& loader) : m_loader(loader) {}

    void print(std::ostream& out);
    // The driver's own part: the synopsis and its options.
    static void print_driver_usage(std::ostream& out);

private:
    void print_backend_usages(std::ostream& out);
    void print_switch_names(std::ostream& out);

    YV_BackendLoader& m_loader;
};

#endif
