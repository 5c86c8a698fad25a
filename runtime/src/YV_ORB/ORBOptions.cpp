#include "YV_ORB/ORBOptions.h"

#include "zantic_sys/CORBA/SystemException.h"

#include <cctype>
#include <cstdlib>
#include <iostream>

namespace YV_ORB {

namespace {

bool same(const std::string& a, const char* b)
{
    std::size_t i = 0;
    for (; i < a.size() && b[i] != '\0'; ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    return i == a.size() && b[i] == '\0';
}

unsigned long long number(const std::string& option, const std::string& value)
{
    char* end = nullptr;
    const unsigned long long n = std::strtoull(value.c_str(), &end, 10);
    if (value.empty() || *end != '\0' || !std::isdigit(static_cast<unsigned char>(value[0]))) {
        std::cerr << "yv ORB: " << option << " wants a number, not \"" << value << "\"\n";
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    }
    return n;
}

} // namespace

void ORBOptions::take(int& argc, char** argv)
{
    if (argv == nullptr)
        return;
    int kept = argc > 0 ? 1 : 0;
    for (int i = kept; i < argc; ++i) {
        const std::string option = argv[i] ? argv[i] : "";
        if (option.compare(0, 4, "-ORB") != 0) {
            argv[kept++] = argv[i];
            continue;
        }
        if (i + 1 >= argc) {
            std::cerr << "yv ORB: " << option << " wants a value\n";
            throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
        }
        const std::string value = argv[++i];
        if (same(option, "-ORBListenEndpoints") || same(option, "-ORBEndPoint")) {
            std::size_t start = 0;
            for (;;) {
                const std::size_t comma = value.find(',', start);
                YV_IIOP::Endpoint e;
                if (!YV_IIOP::Endpoint::parse(value.substr(start, comma - start), e)) {
                    std::cerr << "yv ORB: not an endpoint: " << value << "\n";
                    throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
                }
                listen.push_back(e);
                if (comma == std::string::npos)
                    break;
                start = comma + 1;
            }
        } else if (same(option, "-ORBEndpointHost")) {
            endpoint_host = value;
        } else if (same(option, "-ORBGIOPMaxMsgSize")) {
            max_message = static_cast<std::size_t>(number(option, value));
            if (max_message < 1024)
                max_message = 1024;
        } else if (same(option, "-ORBMaxThreads")) {
            max_threads = static_cast<std::size_t>(number(option, value));
        } else if (same(option, "-ORBInitRef")) {
            const std::size_t eq = value.find('=');
            if (eq == std::string::npos || eq == 0) {
                std::cerr << "yv ORB: -ORBInitRef wants Name=URL, not \"" << value << "\"\n";
                throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
            }
            init_refs[value.substr(0, eq)] = value.substr(eq + 1);
        } else if (same(option, "-ORBDefaultInitRef")) {
            default_init_ref = value;
        } else if (same(option, "-ORBCallTimeout")) {
            call_timeout = std::chrono::milliseconds(number(option, value));
        } else if (same(option, "-ORBConnectTimeout")) {
            connect_timeout = std::chrono::milliseconds(number(option, value));
        } else if (same(option, "-ORBColocated")) {
            if (same(value, "yes"))
                colocated = true;
            else if (same(value, "no"))
                colocated = false;
            else {
                std::cerr << "yv ORB: -ORBColocated wants yes or no, not \"" << value << "\"\n";
                throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
            }
        } else if (same(option, "-ORBTraceLevel")) {
            trace_level = static_cast<int>(number(option, value));
        } else {
            std::cerr << "yv ORB: ignoring unknown option " << option << " " << value << "\n";
        }
    }
    if (argc > 0)
        argv[kept] = nullptr;
    argc = kept;
}

} // namespace YV_ORB
