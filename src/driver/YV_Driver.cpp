#include "YV_Driver.h"

#include "CodeGenerator.h"
#include "IDL_Frontend.h"
#include "YV_BackendInfo.h"
#include "YV_Help.h"
#include "idl_msg_header.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>

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
    for (const std::string& message : cl.errors())
        error(message);
    if (cl.files().empty() && cl.errors().empty())
        error("no input files (see --help)");
    if (m_failed)
        return EXIT_USAGE;

    if (!cl.preprocess_only() && !load_backends(cl))
        return EXIT_ERRORS;

    IDL_Frontend frontend(cl.frontend_options());
    for (const std::string& file : cl.files()) {
        if (!check_input(file))
            continue;
        if (cl.preprocess_only())
            preprocess(frontend, file);
        else
            compile(frontend, cl, file);
    }
    std::cout.flush();
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

void YV_Driver::compile(IDL_Frontend& frontend, const YV_CommandLine& cl, const std::string& file)
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
}

bool YV_Driver::check_input(const std::string& file)
{
    std::error_code ec;
    if (std::filesystem::is_directory(file, ec)) {
        error("input '" + file + "' is a directory");
        return false;
    }
    if (!std::ifstream(file)) {
        error("cannot read input file '" + file + "'");
        return false;
    }
    return true;
}

void YV_Driver::error(const std::string& message)
{
    std::cerr << "yvidl: error: " << message << std::endl;
    m_failed = true;
}
