// The general C++ generator: the standard OMG IDL-to-C++ mapping for the
// client side, and the settings and steps that C++ back ends share.
#ifndef GEN_CPLUSPLUS_H
#define GEN_CPLUSPLUS_H

#include "CodeGenerator.h"
#include "VisitorFF.h"
#include "YV_String.h"

#include <iosfwd>
#include <set>
#include <string>

class AST_Decl;
class YV_OutputFile;

class GEN_CPlusPlus : public virtual CodeGenerator {
public:
    GEN_CPlusPlus();

    // Virtual steps, in the order of the generator's table.
    ~GEN_CPlusPlus() override;
    virtual VisitorFF* visitorFF();
    virtual void set_options(const char* text, long on, long off);
    virtual void set_options(const char* text);
    // Calls the three-argument set_options with on = 0 and off = 1, so that
    // "+x<Name>" undoes what "-x<Name>" did.
    virtual void clear_options(const char* text);
    // A banner comment naming the tool and its version; no dates, no paths.
    virtual void output_copyright(std::ostream& os);
    virtual const char* plugin_name() const;
    // Writes the client header and, when the header declares anything that
    // must be defined out of line, the client source file.
    virtual void generate_client();
    virtual void generate_hh();
    // Writes the client source file (base name, ".", stub extension, in the
    // stub directory) unless it would hold no definition.
    virtual void generate_cxx();
    virtual void generate_obv_hh();
    virtual void generate_obv_cxx();
    virtual void setFileStrings();
    virtual void outputIncludes(std::ostream& os);
    virtual void outputIncludedIDL(std::ostream& os);
    virtual void output_header_system_includes(std::ostream& os);
    virtual void output_stub_system_includes(std::ostream& os);
    virtual void output_os_specific_header_stuff(std::ostream& os);
    virtual void output_os_specific_stub_stuff(std::ostream& os);
    virtual void output_obv_includes(std::ostream& os);
    virtual void outputDeclSpec(std::ostream& os);
    // Reads the configuration file, if there is one, and applies the option
    // text it gives for this generator's plugin_name().
    virtual void read_config_file();
    virtual void init_factory_finder();

protected:
    // Registers the client-side declaration visitors' nine factories, in
    // the order every generator's finder starts with.
    void add_client_declaration_factories();
    // Opens `out` on `path`; a file that cannot be written ends the process
    // with status 99 after a message on the error stream.
    void open_output_file(YV_OutputFile& out, const YV_String& path) const;
    std::string prog_name() const;
    // Applies one -x switch by name; reports an unknown name on the error
    // stream.
    virtual void code_off_switch(const char* name, long on, long off);
    // The option grammar of the letters in CxxOptionLetters.def: those every
    // generator knows, with the plug-in's own when `with_plugin_letters`.
    static std::string option_grammar(bool with_plugin_letters);
    // True for a letter that changes nothing without a value.
    static bool option_needs_value(int letter);
    // Applies an option letter that every generator knows (extensions,
    // include prefix, export macros, directories, switches); false for any
    // other letter.
    bool apply_base_option(int letter, const char* value, long on, long off);

public:
    // The text without one pair of surrounding double quotes or angle brackets.
    virtual YV_String strip_out_quotes(const char* text);

    // Runs the client generation for `-base`.
    void generate(IDL_GlobalData* data, const char* options) override;
    void* narrow(char* tag) override;
    static char _narrow_tag;

    // Switches and settings, read at the moment the text that depends on
    // them is written.
    long namespace_support() const { return m_namespace_support; }
    long declspecs_on() const { return m_declspecs; }
    // The export macro in effect (set when the export-macro block is written).
    const char* declspec() const { return m_declspec.c_str(); }
    long ami_callbacks_on() const { return m_ami_callbacks; }
    long dispatch_on() const { return m_dispatch; }
    long RTTI_support() const { return m_rtti; }
    long enforce_raises_on() const { return m_enforce_raises; }
    // The two messaging switches: reply-handler (callback) and poller
    // support. Either one makes C++ back ends include the Messaging header.
    long ami_messaging_on() const { return m_ami_messaging; }
    long ami_polling_on() const { return m_ami_polling; }

    // `text` with every character that cannot stand in a C++ identifier
    // replaced by '_', and a leading '_' added when it begins with a digit.
    static YV_String make_legal_alpha_numeric_var(const YV_String& text);

    // Writes one line per -x switch name that code_off_switch knows, with
    // what it does (for the driver's --help).
    static void print_switches(std::ostream& os);
    // Writes the usage lines of the base generator's options.
    static void print_usage(std::ostream& os);

    // True the first time it is asked for declaration `d` in a run of
    // generate_client: the companion types of a named type (_ptr, _var,
    // _out ...) are written once, however often forward declarations
    // announce the type. Only membership is asked; the set is never walked.
    bool first_companions(const AST_Decl* d) { return m_companions_done.insert(d).second; }

    // Read-only views of the file settings.
    const YV_String& header_ext() const { return m_header_ext; }
    const YV_String& stub_ext() const { return m_stub_ext; }
    const YV_String& header_dir() const { return m_header_dir; }
    const YV_String& stub_dir() const { return m_stub_dir; }
    const YV_String& include_prefix() const { return m_include_prefix; }
    const YV_String& declspec_name() const { return m_declspec_name; }

    // The C++ names of every declaration nested in another (not at file
    // scope) in the tree of this run. A fully scoped client name whose
    // outermost component is one of them could be captured by that nearer
    // declaration where it is written, so it gets a leading "::".
    const std::set<std::string>& nested_names();
    // While the client files are written: nested_names(); otherwise (the
    // skeleton plug-ins' text, whose names are fixed) null.
    const std::set<std::string>* capture_guard();

    // Writes the include lines of the main file's directives at file scope
    // that stand before root declaration `position` and are not written yet;
    // true when it wrote a line.
    bool write_includes_before(std::ostream& os, std::size_t position);

protected:
    // File naming (extensions are held without a leading '.').
    YV_String m_header_ext;            // default "hh"
    YV_String m_stub_ext;              // default "cxx"
    YV_String m_standard_header_ext;   // "hh"
    YV_String m_header_dir;            // "" or ending in the separator
    YV_String m_stub_dir;              // "" or ending in the separator
    YV_String m_include_prefix;        // "" means none
    YV_String m_base_name;             // the IDL file's stripped name up to its last '.'
    YV_String m_header_name;           // the generated header's file name
    YV_String m_stub_name;             // the generated source file's name

    // Export macros.
    long m_declspecs = 0;
    YV_String m_declspec_name;         // the name given with -d, or ""
    YV_String m_declspec;              // the export macro in effect

    // Switches.
    long m_namespace_support = 1;
    long m_ami_callbacks = 0;
    long m_ami_messaging = 0;
    long m_ami_polling = 0;
    long m_dispatch = 1;
    long m_rtti = 0;
    long m_enforce_raises = 0;

    VisitorFF m_visitor_ff;

    // Named types whose companions are written (first_companions).
    std::set<const AST_Decl*> m_companions_done;
    std::set<std::string> m_nested_names;
    bool m_nested_names_known = false;
    bool m_writing_client = false;
    // Entries of the included-file list whose include line is written.
    std::size_t m_includes_written = 0;
};

// The capture guard of `gen` when it is a C++ generator, else null.
const std::set<std::string>* capture_guard_of(CodeGenerator* gen);

#endif
