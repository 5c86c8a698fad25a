#include "YV_Driver.h"

#include "CodeGenerator.h"
#include "IDL_Frontend.h"
#include "YV_BackendInfo.h"
#include "YV_Help.h"
#include "YV_IdlDir.h"
#include "YV_OutputFile.h"
#include "idl_msg_header.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <iostream>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

#ifndef YV_VERSION_TEXT
#define YV_VERSION_TEXT "0"
#endif

int YV_Driver::run(int argc, const char* const* argv)
{
    const YV_CommandLine cl = YV_CommandLine::parse(argc, argv);
    if (cl.help()) {
        YV_Help(m_loader).print(std::cout);
        return EXIT_OK;
    }
    if (cl.version()) {
        std::cout << "yvidl " << YV_VERSION_TEXT << std::endl;
        return EXIT_OK;
    }
    const std::string idl_dir = YV_IdlDir::find();
    if (cl.print_idl_dir() && cl.errors().empty()) {
        if (idl_dir.empty()) {
            error("the compiler's IDL directory is missing (looked for it relative to the yvidl binary)");
            return EXIT_ERRORS;
        }
        std::cout << idl_dir << std::endl;
        return EXIT_OK;
    }
    for (const std::string& message : cl.errors())
        error(message);
    if (cl.files().empty() && cl.errors().empty())
        error("no input files (see --help)");
    if (cl.preprocess_only() && cl.dependency_options().enabled)
        error("-E writes no dependency file: -MD, -MF, -MT, -MQ and -MP need a compilation");
    if (m_failed)
        return EXIT_USAGE;

    if (!cl.preprocess_only() && !load_backends(cl))
        return EXIT_ERRORS;

    // No output may replace an input of the run.
    for (const std::string& file : cl.files())
        YV_OutputFile::protect(file);

    // The standard IDL files come after every -I directory.
    IDL_FrontendOptions options = cl.frontend_options();
    if (!idl_dir.empty())
        options.include_dirs.push_back(idl_dir);
    IDL_Frontend frontend(options);
    YV_DepFile deps(cl.dependency_options());
    for (const std::string& file : cl.files()) {
        if (!check_input(file))
            continue;
        if (cl.preprocess_only()) {
            preprocess(frontend, file);
        } else if (cl.backends().empty() || check_output_base(file)) {
            compile(frontend, cl, file, deps);
        }
    }
    std::string deps_error;
    if (!deps.write(deps_error)) {
        error(deps_error);
        return EXIT_OUTPUT;
    }
    if (!std::cout.flush()) {
        const int error_number = errno;
        std::cout.clear();
        error(std::string("cannot write standard output: ") + std::strerror(error_number));
        return EXIT_OUTPUT;
    }
    return (m_failed || idl_error_count() > 0) ? EXIT_ERRORS : EXIT_OK;
}

bool YV_Driver::load_backends(const YV_CommandLine& cl)
{
    bool ok = true;
    std::set<const YV_BackendInfo*> tried;
    for (const YV_CommandLine::BackendSwitch& sw : cl.backends()) {
        std::string message;
        if (tried.insert(sw.backend).second && !m_loader.load(*sw.backend, message)) {
            error(message);
            ok = false;
        }
    }
    return ok;
}

void YV_Driver::preprocess(IDL_Frontend& frontend, const std::string& file)
{
    try {
        if (!frontend.preprocess_file(file, std::cout))
            m_failed = true;
    } catch (const std::exception& e) {
        error(file + ": cannot be preprocessed: " + e.what());
    } catch (...) {
        error(file + ": cannot be preprocessed");
    }
}

void YV_Driver::compile(IDL_Frontend& frontend, const YV_CommandLine& cl, const std::string& file, YV_DepFile& deps)
{
    const long errors_before = idl_error_count();
    std::unique_ptr<IDL_GlobalData> data;
    try {
        data = frontend.parse_file(file);
    } catch (const std::exception& e) {
        error(file + ": cannot be compiled: " + e.what());
        return;
    } catch (...) {
        error(file + ": cannot be compiled");
        return;
    }
    // No output at all for a file with errors.
    if (!data || idl_error_count() != errors_before)
        return;
    const bool failed_before = m_failed;
    YV_OutputFile::take_committed();
    for (const YV_CommandLine::BackendSwitch& sw : cl.backends()) {
        YV_Backend* backend = m_loader.loaded(*sw.backend);
        try {
            backend->generator()->generate(data.get(), sw.options_text());
        } catch (const std::exception& e) {
            error(file + ": back end -" + sw.backend->switch_name + " failed: " + e.what());
        } catch (...) {
            error(file + ": back end -" + sw.backend->switch_name + " failed");
        }
        std::cout.flush();
    }
    const std::vector<std::string> outputs = YV_OutputFile::take_committed();
    if (deps.enabled() && idl_error_count() == errors_before && m_failed == failed_before)
        deps.add(file, outputs, data->files_read());
}

bool YV_Driver::check_input(const std::string& file)
{
    // Only regular files are read: opening a pipe or a device could wait
    // for ever, or read without end.
    struct stat st;
    if (file.empty()) {
        error("cannot read input file ''");
        return false;
    }
    if (::stat(file.c_str(), &st) != 0) {
        const int error_number = errno;
        error("cannot read input file '" + file + "': " + std::strerror(error_number));
        return false;
    }
    if (S_ISDIR(st.st_mode)) {
        error("input '" + file + "' is a directory");
        return false;
    }
    if (!S_ISREG(st.st_mode)) {
        error("input '" + file + "' is not a regular file; only regular files are read");
        return false;
    }
    if (::access(file.c_str(), R_OK) != 0) {
        const int error_number = errno;
        error("cannot read input file '" + file + "': " + std::strerror(error_number));
        return false;
    }
    return true;
}

bool YV_Driver::check_output_base(const std::string& file)
{
    // Output names replace the input's extension (the text from its last
    // '.'); without one, or with nothing before it, they would be empty or
    // fall back on the previous input's names.
    const std::size_t slash = file.find_last_of("/\\");
    const std::string name = slash == std::string::npos ? file : file.substr(slash + 1);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos) {
        error("input '" + file + "' has no extension (such as .idl): output file names are made by replacing it");
        return false;
    }
    if (dot == 0) {
        error("input '" + file + "' has nothing before its extension: output file names would be empty");
        return false;
    }
    return true;
}

void YV_Driver::error(const std::string& message)
{
    std::cerr << "yvidl: error: " << message << std::endl;
    m_failed = true;
}
