// The back ends the driver knows: the switch that selects each one, the
// shared library that holds it and the names of its two entry points.
#ifndef YV_BACKENDINFO_H
#define YV_BACKENDINFO_H

#include <string>
#include <vector>

class YV_BackendInfo {
public:
    // The switch name without its '-': "poa" for -poa.
    std::string switch_name;
    // The library's file name, looked up in the plug-in directory.
    std::string library;
    // extern "C" CodeGenerator* <init_symbol>(): the back end's generator,
    // owned by the library.
    std::string init_symbol;
    // extern "C" void <usage_symbol>(): writes usage lines on std::cerr.
    std::string usage_symbol;
    // One line for the driver's own usage text.
    std::string summary;

    // Every known back end, in the order --help lists them.
    static const std::vector<YV_BackendInfo>& known();
    // The back end selected by `switch_name`, or null.
    static const YV_BackendInfo* find(const std::string& switch_name);
};

#endif
