// The base of visitor factories. A factory answers local_narrow with itself
// for the address of its own class's tag, and with null otherwise.
#ifndef VISITORFACTORY_H
#define VISITORFACTORY_H

class VisitorFactory {
public:
    virtual ~VisitorFactory() = default;
    virtual void* local_narrow(char* tag)
    {
        (void)tag;
        return nullptr;
    }
};

#endif
