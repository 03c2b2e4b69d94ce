// SPDX-License-Identifier: MIT
//
// Usage: ten_year_store DATA_DIRECTORY
// Makes the store of somebody who has used the program for ten years: 2,000 tasks, 40,000 intervals
// and 10,000 notes up to now. Nothing runs in it.
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>

#include "benchmarks/sample_store.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: ten_year_store DATA_DIRECTORY" << std::endl;
        return EXIT_FAILURE;
    }
    try {
        hearthmark::benchmarks::makeTenYearStore(std::filesystem::path(argv[1]) / "Hearthmark");
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
