// The names of a dispatch function's parameters and variables, made once by
// the naming functions from fixed words, and the small shapes of text that
// the colocated and the request-based bodies share.
#ifndef POA_DISPATCHNAMES_H
#define POA_DISPATCHNAMES_H

#include "AST_Argument.h"
#include "CxxPrinter.h"

#include <string>
#include <vector>

class AST_Operation;

class POA_DispatchNames {
public:
    static const POA_DispatchNames& get();

    std::string servant;
    std::string request;
    std::string status;
    std::string intf;
    std::string nvlist;
    std::string any;
    std::string result;
    std::string target_orb;
    std::string retn;
    std::string retn_any;
    std::string named_values;
    std::string stack_nvlist;

    // "<status> = CORBA::COMPLETED_MAYBE;", what `call` writes, then
    // "<status> = CORBA::COMPLETED_YES;" and an empty line.
    template <class Call>
    void completion_around(CxxPrinter& p, Call call) const
    {
        p.print("$status$ = CORBA::COMPLETED_MAYBE;\n", {{"status", status}});
        call();
        p.print("$status$ = CORBA::COMPLETED_YES;\n\n", {{"status", status}});
    }

    // The operation's arguments, in order.
    static std::vector<AST_Argument*> arguments_of(AST_Operation* op);

private:
    POA_DispatchNames();
};

#endif
