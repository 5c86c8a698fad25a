// An output file stream for generated text, written in full or not at all.
//
// The text goes to a temporary file beside the final one (in the directory
// of the file a symbolic link points to, when the name is a link) and is
// renamed into place by commit() only when every write, the flush and the
// close succeeded. A failed or abandoned file leaves nothing under its
// name, and a file of that name from an earlier run stays as it was.
// Names of devices and pipes are written directly (there is nothing to
// rename), and so is a file whose directory does not let us create the
// temporary file while the file itself can be written.
//
// Generators write many small pieces; the stream keeps them in a large
// buffer of its own and copies each piece with one memcpy, writing the
// buffer out in big blocks. New files get the default protection (0666,
// less the umask).
//
// Within one process the class remembers the files it has put in place and
// the files protected as inputs, and refuses to open any of them again for
// writing: two outputs of a run that would end up under one name, or an
// output that would replace an input, are errors rather than silent loss.
#ifndef YV_OUTPUTFILE_H
#define YV_OUTPUTFILE_H

#include "YV_TextBuffer.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

class YV_OutputFile : public std::ostream {
public:
    YV_OutputFile();
    // Discards a file that was not committed.
    ~YV_OutputFile() override;
    YV_OutputFile(const YV_OutputFile&) = delete;
    YV_OutputFile& operator=(const YV_OutputFile&) = delete;

    // Starts writing `path`. On failure the stream is left in a failed state
    // and error() tells why.
    void open(const std::string& path);
    bool is_open() const { return m_buf.fd() >= 0; }

    // Puts what was written in place under its name. False when anything
    // failed since open (the file is then discarded); error() tells why.
    bool commit();
    // commit() for stream-like use: a failure sets failbit.
    void close();
    // Drops what was written; nothing changes under the file's name.
    void discard();
    // Opens `path`; on failure writes `prog_name`, `what`, the path and
    // " for writing." on the error stream (after a line with the reason when
    // the name is refused) and ends the process with status 99.
    void open_or_exit(const std::string& path, const std::string& prog_name, const char* what);
    // Commits; on failure writes "<prog>: error: cannot write <path>:
    // <reason>" on the error stream and ends the process with status 99.
    void commit_or_exit(const std::string& prog_name);

    // The number of bytes written since open().
    std::uint64_t size() const { return m_buf.size(); }
    // The name given to open().
    const std::string& path() const { return m_path; }
    // Why the last open or commit failed: the system's message, or our own
    // reason for refusing a name; empty when nothing failed.
    const std::string& error() const { return m_error; }
    // True when the last open failed because the name is taken by an
    // earlier output of this process or by a protected input.
    bool refused() const { return m_refused; }

    // Marks an existing file (an input) as one that no output may replace.
    static void protect(const std::string& path);
    // The names (as given to open()) of the files put in place since the
    // last call, in order; the driver lists them in dependency files.
    static std::vector<std::string> take_committed();
    // Forgets the files written and protected so far (for programs that
    // make several independent runs in one process).
    static void forget_files();

private:
    class Buffer : public YV_TextBuffer {
    public:
        Buffer();
        ~Buffer() override;
        void attach(int fd);
        // Writes out what is buffered and closes the descriptor; false on
        // a write or close error (errno() then holds the first one).
        bool close();
        int fd() const { return m_fd; }
        int error_number() const { return m_errno; }
        std::uint64_t size() const { return m_flushed + static_cast<std::uint64_t>(pptr() - pbase()); }

    protected:
        int_type overflow(int_type c) override;
        std::streamsize xsputn(const char* s, std::streamsize n) override;
        int sync() override;

    private:
        bool flush_buffer();
        std::vector<char> m_storage;
        int m_fd = -1;
        int m_errno = 0;
        std::uint64_t m_flushed = 0;  // bytes handed to write() since attach
    };

    void fail(const std::string& reason);

    Buffer m_buf;
    std::string m_path;       // as given to open()
    std::string m_target;     // the file that is replaced: the path, links followed
    std::string m_temp;       // the temporary file; empty when writing directly
    std::string m_error;
    bool m_refused = false;
};

#endif
