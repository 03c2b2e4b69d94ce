// SPDX-License-Identifier: MIT
#include "export/file_documents.h"

#include <string_view>
#include <utility>

#include "export/everything_document.h"
#include "export/interval_calendar.h"
#include "export/interval_table.h"

namespace hearthmark::exporting {

namespace {

using services::FileKind;

std::string_view endingOf(FileKind kind) {
    switch (kind) {
        case FileKind::everything:
            return ".json";
        case FileKind::table:
            return ".csv";
        case FileKind::calendar:
            return ".ics";
    }
    return {};
}

}  // namespace

FileDocuments::FileDocuments(
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<const base::Clock> clock, std::shared_ptr<const base::Calendar> calendar)
    : liveDataFactory_(std::move(liveDataFactory)),
      clock_(std::move(clock)),
      calendar_(std::move(calendar)) {}

store::Tasks FileDocuments::tasks() const {
    const auto provider =
        liveDataFactory_->makeProvider<store::Task>({.key = "creationDate", .ascending = true});
    provider->startObserving();
    return provider->currentItems()->value();
}

// " 2026-11-23"; empty where the calendar has no such day.
std::string FileDocuments::dayOf(base::Date date) const {
    const auto day = calendar_->localDay(date);
    if (!day) {
        return {};
    }
    const auto twoDigits = [](unsigned number) {
        return (number < 10 ? "-0" : "-") + std::to_string(number);
    };
    return ' ' + std::to_string(static_cast<int>(day->year())) +
           twoDigits(static_cast<unsigned>(day->month())) +
           twoDigits(static_cast<unsigned>(day->day()));
}

FileDocuments::Document FileDocuments::everything() const {
    auto document = std::make_unique<EverythingDocument>(tasks());
    auto leftOut = [written = document.get()] { return LeftOut{.names = written->leftOut()}; };
    return {std::move(document), std::move(leftOut)};
}

FileDocuments::Document FileDocuments::shown(base::Date from, base::Date to, FileKind kind) const {
    auto rows = intervalRows(tasks(), from, to, clock_->now());
    if (kind == FileKind::table) {
        return {std::make_unique<IntervalTable>(std::move(rows), calendar_),
                [] { return LeftOut{}; }};
    }
    auto calendar = std::make_unique<IntervalCalendar>(std::move(rows));
    auto leftOut = [intervals = calendar->leftOut()] {
        return LeftOut{.names = {}, .intervals = intervals};
    };
    return {std::move(calendar), std::move(leftOut)};
}

std::string FileDocuments::nameOfEverything() const {
    return "Hearthmark" + dayOf(clock_->now()) + std::string(endingOf(FileKind::everything));
}

std::string FileDocuments::nameOfShown(base::Date from, base::Date to, FileKind kind) const {
    const std::string first = dayOf(from);
    const std::string last = dayOf(to + base::Seconds(-1));
    return "Hearthmark" + (first == last ? first : first + " to" + last) +
           std::string(endingOf(kind));
}

}  // namespace hearthmark::exporting
