// SPDX-License-Identifier: MIT
//
// Usage: ten_year_store DATA_DIRECTORY [TASKS INTERVALS_OF_TASK NOTES_OF_TASK]
// Makes the store of somebody who has used the program for ten years: 2,000 tasks, 40,000 intervals
// and 10,000 notes up to now, or as many as told. Nothing runs in it.
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "benchmarks/sample_store.h"

int main(int argc, char** argv) {
    if (argc != 2 && argc != 5) {
        std::cerr << "Usage: ten_year_store DATA_DIRECTORY [TASKS INTERVALS_OF_TASK NOTES_OF_TASK]"
                  << std::endl;
        return EXIT_FAILURE;
    }
    try {
        hearthmark::benchmarks::TenYears ofUse;
        if (argc == 5) {
            ofUse = {.tasks = std::stoll(argv[2]),
                     .intervalsOfTask = std::stoll(argv[3]),
                     .notesOfTask = std::stoll(argv[4])};
        }
        hearthmark::benchmarks::makeTenYearStore(std::filesystem::path(argv[1]) / "Hearthmark",
                                                 ofUse);
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
