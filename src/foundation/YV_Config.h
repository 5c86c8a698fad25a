// The compiler's configuration file.
//
// A text file of "key = value" lines; blank lines and lines whose first
// non-blank character is '#' are ignored; blanks around key and value are
// dropped. Known keys:
//   plugin-dir = <directory>           where back-end plug-in libraries are
//   options.<BackEnd> = <option text>  default options of a back end, as after
//                                      its switch (options.POACxx = -p5:-xTIE)
// The file is the one named by the environment variable YVIDL_CONFIG, else
// yvidl.cfg beside the running compiler. No file means built-in defaults.
#ifndef YV_CONFIG_H
#define YV_CONFIG_H

#include <map>
#include <optional>
#include <string>

class YV_Config {
public:
    // Parses a configuration text. Malformed lines (no '=') are skipped.
    static YV_Config parse(const std::string& text);
    // Reads the file at `path`; nothing when it cannot be read.
    static std::optional<YV_Config> load(const std::string& path);
    // The configuration in effect for this process (see above); cached.
    static const YV_Config& current();
    // The path current() reads: $YVIDL_CONFIG, else yvidl.cfg in the
    // directory of the running executable.
    static std::string default_path();
    // The directory of the running executable ("" when unknown).
    static std::string executable_dir();

    // The value of `key`, or null.
    const std::string* get(const std::string& key) const;

private:
    std::map<std::string, std::string> m_values;
};

#endif
