// The base of every code generator a back-end plug-in hands to the driver.
#ifndef CODEGENERATOR_H
#define CODEGENERATOR_H

class IDL_GlobalData;
class NameResolver;

class CodeGenerator {
public:
    virtual ~CodeGenerator() = default;

    // Generates the back end's files for one parsed IDL file; `options` is
    // the text after the back end's switch and ':' (null when there is none).
    virtual void generate(IDL_GlobalData* data, const char* options) = 0;
    // Answers this object for the address of CodeGenerator::_narrow_tag;
    // derived generators answer for their own tag and defer otherwise.
    virtual void* narrow(char* tag) { return tag == &_narrow_tag ? this : nullptr; }

    // The global data and the name resolver of the run in progress.
    IDL_GlobalData* global_data() const { return m_global_data; }
    NameResolver* name_resolver() const { return m_name_resolver; }
    void set_global_data(IDL_GlobalData* d) { m_global_data = d; }
    void set_name_resolver(NameResolver* r) { m_name_resolver = r; }

    static char _narrow_tag;

private:
    IDL_GlobalData* m_global_data = nullptr;
    NameResolver* m_name_resolver = nullptr;
};

#endif
