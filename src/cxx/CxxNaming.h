// Names of generated variables and parameters. Each function has its own
// fixed prefix beginning with "_yv", so generated names can never clash with
// IDL identifiers (which cannot begin with '_' after unescaping) nor with
// each other; the same word always gives the same name.
#ifndef CXXNAMING_H
#define CXXNAMING_H

#include <string>

std::string yvparam(const char* word);     // "_yvp_" word
std::string yvlocalvar(const char* word);  // "_yvl_" word
std::string yvtmpvar(const char* name);    // "_yvt_" name
std::string yvstrmvar(const char* name);   // "_yvs_" name

// `format` with its first "%s" replaced by `name` and every "%%" by "%",
// as printf would write it (parameter-name formats such as "_yvvar_%s").
std::string apply_name_format(const std::string& format, const std::string& name);

#endif
