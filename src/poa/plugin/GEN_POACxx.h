// The POACxx plug-in's one generator: writes the skeleton header and the
// skeleton implementation file of the POA C++ mapping for an IDL file.
#ifndef GEN_POACXX_H
#define GEN_POACXX_H

#include "GEN_CPlusPlus.h"
#include "YV_HashMap.h"
#include "YV_String.h"

#include <iosfwd>

class GEN_POACxx : public virtual GEN_CPlusPlus {
public:
    GEN_POACxx();
    GEN_POACxx(const GEN_POACxx& other);
    ~GEN_POACxx() override;

    void set_options(const char* text, long on, long off) override;
    void set_options(const char* text) override;
    const char* plugin_name() const override;
    void generate_hh() override;
    void setFileStrings() override;
    void outputIncludes(std::ostream& os) override;
    void outputIncludedIDL(std::ostream& os) override;
    void outputDeclSpec(std::ostream& os) override;
    void init_factory_finder() override;

    void generate(IDL_GlobalData* data, const char* options) override;
    void* narrow(char* tag) override;

    // Writes the skeleton implementation file.
    virtual void generate_impl();

    // The plug-in's generator behind `gen`. Every visitor of this plug-in
    // carries this plug-in's generator, so callers use the result as it is.
    static GEN_POACxx* narrow_from_gen(CodeGenerator* gen);

    long poa_interfaces_on() const { return m_poa_interfaces; }
    long coloc_poa_on() const { return m_coloc_poa; }
    int hash_max() const { return m_hash_max; }

    // Read-only views of the remaining settings, for tests and tools.
    long tie_on() const { return m_tie; }
    long orb_s_hh_on() const { return m_orb_s_hh; }
    const YV_String& client_header_ext() const { return m_client_header_ext; }
    const YV_HashMap<YV_String, YV_String>& exclude_patterns() const { return m_exclude_patterns; }

    static char _narrow_tag;

protected:
    void code_off_switch(const char* name, long on, long off) override;

private:
    // `base` joined to `ext`: "S." between them unless `ext` holds a "."
    // (then it is the whole suffix).
    static YV_String skeleton_file_name(const YV_String& base, const YV_String& ext);
    // "#include" of one of this file's own headers: between double quotes,
    // or between angle brackets after the include prefix when there is one.
    void output_own_include(std::ostream& os, const YV_String& file) const;
    // Applies one option letter of the option text.
    void apply_option(int letter, char sign, const char* value, long on, long off);


    YV_String m_client_header_ext;
    YV_HashMap<YV_String, YV_String> m_exclude_patterns;
    long m_poa_interfaces;
    long m_orb_s_hh;
    long m_coloc_poa;
    long m_tie;
    int m_hash_max;
};

#endif
