// SPDX-License-Identifier: MIT
//
// Stands in for the fuzzing library where the compiler has none: gives the fuzzer that it is linked
// to every file of a directory.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

// NOLINTNEXTLINE(readability-identifier-naming): the library's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argc == 2 ? argv[1] : "")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++replayed;
    }
    return replayed > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
