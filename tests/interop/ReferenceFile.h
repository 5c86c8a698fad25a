// How the test programs hand a reference from server to client: a file
// holding one stringified reference, named on the command line.
#ifndef INTEROP_REFERENCE_FILE_H
#define INTEROP_REFERENCE_FILE_H

#include <string>

namespace interop {

class ReferenceFile {
public:
    // Writes `ior` through a temporary file so that a reader polling for
    // the file never sees half of it. False when it could not be written.
    static bool write(const std::string& path, const char* ior);

    // Reads a client's arguments left after ORB_init: --ior-file FILE and,
    // when `direct` is set, --ref REFERENCE. Returns the reference, or an
    // empty string after printing the usage of `program` to stderr.
    static std::string from_arguments(int argc, char** argv, const char* program, bool direct);
};

} // namespace interop

#endif
