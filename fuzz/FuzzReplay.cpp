// A main for the fuzz targets in builds without libFuzzer (gcc, the tests):
// runs each file named on the command line, or each file of a directory
// named there, through the target once, as libFuzzer does when it is given
// files. Keeps the targets compiling everywhere and replays saved inputs as
// ordinary tests.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fs = std::filesystem;

int main(int argc, char** argv)
{
    // Paths are taken before the target starts: the pipeline target changes
    // its working directory.
    std::vector<fs::path> inputs;
    for (int k = 1; k < argc; ++k) {
        const fs::path arg = fs::absolute(argv[k]);
        if (fs::is_directory(arg)) {
            for (const auto& e : fs::directory_iterator(arg))
                inputs.push_back(e.path());
        } else {
            inputs.push_back(arg);
        }
    }
    LLVMFuzzerInitialize(&argc, &argv);
    for (const fs::path& path : inputs) {
        std::ifstream in(path, std::ios::binary);
        if (!in) {
            std::cout << "cannot read " << path.string() << "\n";
            return 1;
        }
        const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::cout << inputs.size() << " input(s) replayed\n";
    return inputs.empty() ? 1 : 0;
}
