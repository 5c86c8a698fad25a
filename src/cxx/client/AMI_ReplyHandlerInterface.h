// The interface node of an asynchronous reply handler (AMI_<I>Handler) made
// for an interface I. Besides its own operations (held in its scope) it owns
// every further node made for it: the handlers of I's bases, and the
// Messaging module with ReplyHandler and ExceptionHolder when the tree has
// none. Deleting it frees all of them; the tree is never changed.
#ifndef AMI_REPLYHANDLERINTERFACE_H
#define AMI_REPLYHANDLERINTERFACE_H

#include "AST_Interface.h"

#include <memory>
#include <vector>

class AMI_ReplyHandlerInterface : public AST_Interface {
public:
    explicit AMI_ReplyHandlerInterface(Identifier name) : AST_Interface(std::move(name), false, false) {}

    // Keeps `d` alive as long as this node; answers the kept node.
    AST_Decl* keep(std::unique_ptr<AST_Decl> d)
    {
        m_kept.push_back(std::move(d));
        return m_kept.back().get();
    }

private:
    std::vector<std::unique_ptr<AST_Decl>> m_kept;
};

#endif
