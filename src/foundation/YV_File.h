// File-system facts of the platform.
#ifndef YV_FILE_H
#define YV_FILE_H

struct YV_File {
    // The directory separator of path names.
    static const char SEPARATOR;
};

#endif
