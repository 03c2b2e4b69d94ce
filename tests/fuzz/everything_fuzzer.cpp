// SPDX-License-Identifier: MIT
//
// Reads documents to import: what is refused has a reason, and what is read is imported, written
// again to the same effect, and taken back.
#include <cstdlib>

#include "base/text.h"
#include "export/everything_document.h"
#include "export/everything_reader.h"
#include "store/hearthmark_model.h"
#include "store/note.h"
#include "support/test_store.h"

using namespace hearthmark;

static void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

static std::string everythingOf(const store::Tasks& tasks) {
    exporting::EverythingDocument document(tasks);
    std::string text;
    while (document.appendNext(text)) {
    }
    require(document.leftOut().empty());
    return text;
}

// NOLINTNEXTLINE(readability-identifier-naming): the library's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto read =
        exporting::readEverything(std::string_view(reinterpret_cast<const char*>(data), size));
    if (read.outcome != exporting::EverythingRead::Outcome::read) {
        require(!read.reason.empty() && base::isValidUtf8(read.reason) && read.tasks.empty());
        return 0;
    }
    const auto container = std::make_shared<objectstore::PersistentContainer>(
        "Imported", store::hearthmarkModel(), std::nullopt);
    container->loadPersistentStores();
    const store::LiveDataProvidingFactory liveData(container);
    store::DataOperationsService service(liveData, container, std::make_shared<tests::FakeClock>(),
                                         base::FatalErrorHandler());
    objectstore::ManagedObjectContext& context = container->viewContext();
    const store::ImportCounts counts = service.importable(read.tasks);
    service.importTasks(read.tasks);
    require(context.objects<store::Task>().size() == counts.tasks &&
            context.objects<store::Interval>().size() == counts.intervals &&
            context.objects<store::Note>().size() == counts.notes);

    const auto again =
        exporting::readEverything(std::string_view(everythingOf(context.objects<store::Task>())));
    require(again.outcome == exporting::EverythingRead::Outcome::read &&
            again.tasks.size() == counts.tasks && service.importable(again.tasks).isEmpty());

    if (const auto change = service.latestChange().value()) {
        require(service.undo(*change) != nullptr);
    }
    require(context.objects<store::Task>().empty() && context.objects<store::Interval>().empty() &&
            context.objects<store::Note>().empty());
    return 0;
}
