// The compiler's run: reads the command line, loads the selected back ends,
// then for every IDL file in turn runs the front end and hands the tree to
// each back end in command-line order.
//
// Exit status: 0 when nothing was reported; 1 when an input had errors (the
// front end's or a back end's, see idl_error_count()) or a back end could
// not be loaded; 2 for a command line that cannot be used; 99 when output
// could not be written (back ends end the process with it themselves).
#ifndef YV_DRIVER_H
#define YV_DRIVER_H

#include "YV_BackendLoader.h"
#include "YV_CommandLine.h"
#include "YV_DepFile.h"

#include <iosfwd>
#include <string>
#include <vector>

class IDL_Frontend;

class YV_Driver {
public:
    static constexpr int EXIT_OK = 0;
    static constexpr int EXIT_ERRORS = 1;
    static constexpr int EXIT_USAGE = 2;
    static constexpr int EXIT_OUTPUT = 99;

    int run(int argc, const char* const* argv);

private:
    // Loads every back end the command line selects; false (reported) when
    // one cannot be loaded.
    bool load_backends(const YV_CommandLine& cl);
    void preprocess(IDL_Frontend& frontend, const std::string& file);
    // Runs the front end and the back ends over one file; with a dependency
    // file asked for, adds the file's rule to `deps` when all went well.
    void compile(IDL_Frontend& frontend, const YV_CommandLine& cl, const std::string& file, YV_DepFile& deps);
    // Reports a problem of the driver itself (not of an input's text).
    void error(const std::string& message);
    // Whether `file` can be read as an input: an existing, readable
    // regular file.
    bool check_input(const std::string& file);
    // Whether output file names can be made from `file`'s name.
    bool check_output_base(const std::string& file);

    YV_BackendLoader m_loader;
    bool m_failed = false;
};

#endif
