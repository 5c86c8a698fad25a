#include "ReferenceFile.h"

#include <cstdio>
#include <cstring>
#include <fstream>

namespace interop {

bool ReferenceFile::write(const std::string& path, const char* ior)
{
    const std::string temporary = path + ".tmp";
    {
        std::ofstream out(temporary);
        out << ior << '\n';
        if (!out.flush())
            return false;
    }
    return std::rename(temporary.c_str(), path.c_str()) == 0;
}

std::string ReferenceFile::from_arguments(int argc, char** argv, const char* program, bool direct)
{
    std::string reference;
    for (int i = 1; i < argc; ++i) {
        if (!std::strcmp(argv[i], "--ior-file") && i + 1 < argc) {
            std::ifstream in(argv[++i]);
            std::getline(in, reference);
        } else if (direct && !std::strcmp(argv[i], "--ref") && i + 1 < argc) {
            reference = argv[++i];
        } else {
            std::fprintf(stderr, "%s: unknown argument %s\n", program, argv[i]);
            return std::string();
        }
    }
    if (reference.empty())
        std::fprintf(stderr, "usage: %s [ORB options] %s\n", program,
                     direct ? "(--ior-file FILE | --ref REFERENCE)" : "--ior-file FILE");
    return reference;
}

} // namespace interop
