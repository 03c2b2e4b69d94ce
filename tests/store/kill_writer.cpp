// SPDX-License-Identifier: MIT
//
// Writes random operations to a store until it is killed, for kill_test.py:
//     kill_writer <directory> <seed>
// It tells what it found, and each operation before it begins and once it has returned, in lines on
// standard output.
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "store/persistent_container_factory.h"
#include "support/random_operations.h"

using namespace hearthmark;

namespace {

// In one write each, so that a kill loses the line or leaves it whole.
void tell(const std::string& text) {
    const std::string line = text + '\n';
    if (::write(STDOUT_FILENO, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
        std::exit(EXIT_FAILURE);
    }
}

template <class Entity>
std::string count(const objectstore::ManagedObjectContext& context) {
    return '\t' + std::to_string(context.objects<Entity>().size());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return EXIT_FAILURE;
    }
    const auto container =
        store::PersistentContainerFactory(argv[1], base::FatalErrorHandler()).makeContainer();
    const auto& context = container->viewContext();
    tell("loaded" + count<store::Task>(context) + count<store::Interval>(context) +
         count<store::RawIntervalState>(context) + count<store::Note>(context));
    tests::RandomOperations operations(container, static_cast<unsigned>(std::stoul(argv[2])),
                                       &tell);
    for (;;) {
        operations.doOne();
    }
}
