// An output file stream for generated text. Generators write many small
// pieces; this stream keeps them in a large buffer of its own and copies
// each piece with one memcpy, and writes the buffer out in big blocks.
// The file is created with the default protection (0666, less the umask)
// and replaces an existing file.
#ifndef YV_OUTPUTFILE_H
#define YV_OUTPUTFILE_H

#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

class YV_OutputFile : public std::ostream {
public:
    YV_OutputFile();
    ~YV_OutputFile() override;
    YV_OutputFile(const YV_OutputFile&) = delete;
    YV_OutputFile& operator=(const YV_OutputFile&) = delete;

    // Opens `path` for writing; on failure the stream is left in a failed state.
    void open(const std::string& path);
    bool is_open() const { return m_buf.fd() >= 0; }
    // Writes what is buffered and closes the file; a write error sets failbit.
    void close();

private:
    class Buffer : public std::streambuf {
    public:
        Buffer();
        ~Buffer() override;
        bool open(const std::string& path);
        bool close();
        int fd() const { return m_fd; }

    protected:
        int_type overflow(int_type c) override;
        std::streamsize xsputn(const char* s, std::streamsize n) override;
        int sync() override;

    private:
        bool flush_buffer();
        std::vector<char> m_storage;
        int m_fd = -1;
        bool m_failed = false;
    };

    Buffer m_buf;
};

#endif
