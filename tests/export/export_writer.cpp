// SPDX-License-Identifier: MIT
//
// Writes all that can be exported of a store, for compare_exports.py:
//     export_writer <directory> <output> [<document of everything to import before>]
// Of a task the files are <output>/<row key of the task>.json and .csv; of all of them
// intervals.csv, intervals.ics and everything.json. A store is made where there is none.
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "export/csv_task_share_serializer.h"
#include "export/everything_document.h"
#include "export/everything_reader.h"
#include "export/file_export.h"
#include "export/interval_calendar.h"
#include "export/interval_rows.h"
#include "export/interval_table.h"
#include "export/json_share_serializer.h"
#include "store/data_operations_service.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/persistent_container_factory.h"
#include "store/raw_interval_state.h"

using namespace hearthmark;

namespace {

constexpr base::Date at(double seconds) {
    return base::Date(base::Seconds(seconds));
}

// As compare_exports.py has them.
constexpr base::Date kNow = at(725760000);
constexpr base::Date kFrom = at(-6e10);
constexpr base::Date kTo = at(9e10);

void write(const std::filesystem::path& file, exporting::TextParts&& parts) {
    const auto result = exporting::writeFile(file, parts, {});
    std::cerr << result.reason;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        return EXIT_FAILURE;
    }
    const auto container =
        store::PersistentContainerFactory(argv[1], base::FatalErrorHandler()).makeContainer();
    if (argc > 3) {
        const auto read = exporting::readEverything(std::filesystem::path(argv[3]), {});
        std::cerr << read.reason;
        const store::LiveDataProvidingFactory liveData(container);
        store::DataOperationsService(liveData, container, std::make_shared<base::SystemClock>(),
                                     base::FatalErrorHandler())
            .importTasks(read.tasks);
    }
    const std::filesystem::path output = argv[2];
    const auto tasks = container->viewContext().objects<store::Task>();
    for (const store::Task& task : tasks) {
        const std::string name = std::to_string(task.key());
        std::ofstream(output / (name + ".json"))
            << exporting::JSONShareSerializer().serialize(task);
        std::ofstream(output / (name + ".csv"))
            << exporting::CSVTaskShareSerializer().serialize(task);
    }
    const auto rows = exporting::intervalRows(tasks, kFrom, kTo, kNow);
    write(output / "intervals.csv",
          exporting::IntervalTable(rows, std::make_shared<base::LocalCalendar>()));
    write(output / "intervals.ics", exporting::IntervalCalendar(rows));
    write(output / "everything.json", exporting::EverythingDocument(tasks));
}
