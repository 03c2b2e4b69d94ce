// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/calendar.h"
#include "base/date.h"
#include "base/uuid.h"
#include "presentation/history_range.h"
#include "presentation/time_bars.h"

namespace hearthmark::presentation {

// What the page of the history shows.
struct HistoryViewState {
    HistoryViewState() = delete;

    enum class Column { task, timeSpent, share, focuses };

    struct Bar {
        // Of the part that it stands for.
        base::LocalTime start{};
        TimeBar bar;

        bool operator==(const Bar&) const = default;
    };

    // [begin, end).
    struct Span {
        base::Date begin;
        base::Date end;
    };

    // How long such days are, of those on which a focus was begun.
    struct WeekdayMean {
        std::chrono::weekday weekday;
        std::string timeSpent;
    };

    struct Row {
        std::optional<base::Uuid> taskId;
        std::string taskName;
        std::string timeSpent;
        // Of the total, in tenths of a percent; absent where that is nothing or has no text.
        std::optional<int> permille;
        std::size_t focuses = 0;
        bool isRunning = false;

        bool operator==(const Row&) const = default;
    };

    // The same one as before where nothing of it has changed.
    using Rows = std::vector<std::shared_ptr<const Row>>;

    struct View {
        HistoryRange range;
        // Not beyond the range that holds the first focus.
        bool canGoBack = false;
        // Not beyond the range that holds today.
        bool canGoForward = false;
        bool holdsToday = false;
        // Oldest first. Empty where the clock is out of all calendars.
        std::vector<Bar> bars = {};
        // What the total and the rows are of: the chosen part, or all of the range. Absent where
        // there are no bars.
        std::optional<Span> span = {};
        // Of a month and what is longer, from the first day of the week on; else none.
        std::vector<WeekdayMean> weekdayMeans = {};
        // The one of now.
        std::optional<std::size_t> current;
        // To which the total and the rows are narrowed.
        std::optional<std::size_t> chosen;
        std::string total;
        Column sortedBy = Column::timeSpent;
        bool isAscending = false;
        Rows rows = {};
    };
};

// What of the page is kept while it is closed.
struct HistoryChoice {
    HistoryUnit unit = HistoryUnit::week;
    // In the range; absent where that is the one which holds today, whatever day that becomes.
    std::optional<std::chrono::year_month_day> day;
    HistoryViewState::Column sortedBy = HistoryViewState::Column::timeSpent;
    bool isAscending = false;
};

}  // namespace hearthmark::presentation
