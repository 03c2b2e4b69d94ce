// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "export/interval_rows.h"
#include "export/text_parts.h"

namespace hearthmark::exporting {

// Intervals as events of an iCalendar file (RFC 5545); docs/export.md describes it. The same
// intervals give the same bytes, whenever they are written.
class IntervalCalendar final : public TextParts {
 public:
    explicit IntervalCalendar(std::vector<IntervalRow> rows);

    bool appendNext(std::string& text) override;
    double shareDone() const override;

    // Of those without an id, which would be others at each import, and those whose year has not
    // four digits.
    std::size_t leftOut() const { return leftOut_; }

 private:
    std::vector<IntervalRow> rows_;
    std::size_t leftOut_;
    // The beginning, an event for each row, and the end.
    std::size_t parts_ = 0;
};

}  // namespace hearthmark::exporting
