// SPDX-License-Identifier: MIT
//
// Writes both forms of every task of a store, for compare_exports.py:
//     export_writer <directory> <output>
// The files are <output>/<row key of the task>.json and .csv. A store is made where there is none.
#include <cstdlib>
#include <fstream>
#include <string>

#include "export/csv_task_share_serializer.h"
#include "export/json_share_serializer.h"
#include "store/persistent_container_factory.h"

using namespace hearthmark;

int main(int argc, char** argv) {
    if (argc != 3) {
        return EXIT_FAILURE;
    }
    const auto container =
        store::PersistentContainerFactory(argv[1], base::FatalErrorHandler()).makeContainer();
    const std::filesystem::path output = argv[2];
    for (const store::Task& task : container->viewContext().objects<store::Task>()) {
        const std::string name = std::to_string(task.key());
        std::ofstream(output / (name + ".json"))
            << exporting::JSONShareSerializer().serialize(task);
        std::ofstream(output / (name + ".csv"))
            << exporting::CSVTaskShareSerializer().serialize(task);
    }
}
