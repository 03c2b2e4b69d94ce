// SPDX-License-Identifier: MIT
//
// Sums ranges of a store's history, for compare_history.py:
//     history_writer <directory>
// Each line of the input is a range: its unit (0 day to 3 year), a day of it in days since 1970,
// the first day of the week (0 is Sunday) and the chosen part, or -1. The output has a line of
// each: the seconds of its parts, "|", and of its tasks row key, seconds and number of focuses.
#include <cstdlib>
#include <iomanip>
#include <iostream>

#include "base/calendar.h"
#include "presentation/history_range.h"
#include "presentation/history_sums.h"
#include "store/interval.h"
#include "store/live_data.h"
#include "store/note.h"
#include "store/persistent_container_factory.h"
#include "store/raw_interval_state.h"

using namespace hearthmark;

int main(int argc, char** argv) {
    if (argc != 2) {
        return EXIT_FAILURE;
    }
    const auto container =
        store::PersistentContainerFactory(argv[1], base::FatalErrorHandler()).makeContainer();
    const auto provider = store::LiveDataProvidingFactory(container).makeProvider<store::Task>(
        {.key = "creationDate", .ascending = true});
    provider->startObserving();
    int unit = 0;
    int day = 0;
    unsigned firstDayOfWeek = 0;
    int chosen = 0;
    while (std::cin >> unit >> day >> firstDayOfWeek >> chosen) {
        const auto starts = presentation::partStarts(
            presentation::rangeAround(presentation::HistoryUnit(unit),
                                      std::chrono::sys_days(std::chrono::days(day)),
                                      std::chrono::weekday(firstDayOfWeek)),
            base::LocalCalendar());
        const auto sums =
            presentation::settledSums(provider->currentItems()->value(), starts,
                                      chosen < 0 ? std::nullopt : presentation::ChosenPart(chosen));
        std::cout << std::setprecision(17);
        for (const base::Seconds part : sums.parts) {
            std::cout << part.count() << ' ';
        }
        std::cout << '|';
        for (const auto& task : sums.tasks) {
            std::cout << ' ' << task.task->key() << ' ' << task.spent.count() << ' '
                      << task.focuses;
        }
        std::cout << '\n';
    }
}
