// Runs a fuzz target once over each input file, without libFuzzer, so that
// every build (also with GCC) replays the committed corpora as a test. Each
// input goes into a heap buffer of exactly its size, so that AddressSanitizer
// sees a read past its end.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace fs = std::filesystem;

int main(int argc, char **argv)
{
    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i) {
        const fs::path path(argv[i]);
        if (fs::is_directory(path)) {
            for (const fs::directory_entry &entry : fs::directory_iterator(path))
                if (entry.is_regular_file())
                    inputs.push_back(entry.path());
        } else if (fs::is_regular_file(path)) {
            inputs.push_back(path);
        } else {
            std::fprintf(stderr, "replay: no such file or directory: %s\n", argv[i]);
            return 2;
        }
    }
    if (inputs.empty()) {
        std::fprintf(stderr, "replay: no inputs given\n");
        return 2;
    }
    std::sort(inputs.begin(), inputs.end());

    for (const fs::path &path : inputs) {
        std::ifstream file(path, std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(file)),
                                      std::istreambuf_iterator<char>());
        std::unique_ptr<uint8_t[]> buffer(new uint8_t[std::max<size_t>(bytes.size(), 1)]);
        std::copy(bytes.begin(), bytes.end(), buffer.get());
        std::fprintf(stderr, "replay: %s (%zu bytes)\n", path.filename().c_str(), bytes.size());
        LLVMFuzzerTestOneInput(buffer.get(), bytes.size());
    }
    std::fprintf(stderr, "replay: %zu inputs, no failure\n", inputs.size());
    return 0;
}
