// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "base/calendar.h"
#include "export/interval_rows.h"
#include "export/text_parts.h"

namespace hearthmark::exporting {

// Intervals as CSV (RFC 4180), for programs and spreadsheets; docs/export.md describes it. Not the
// table of the share sheet, which escapes nothing.
class IntervalTable final : public TextParts {
 public:
    IntervalTable(std::vector<IntervalRow> rows, std::shared_ptr<const base::Calendar> calendar);

    bool appendNext(std::string& text) override;
    double shareDone() const override;

 private:
    std::vector<IntervalRow> rows_;
    std::shared_ptr<const base::Calendar> calendar_;
    bool hasHeader_ = false;
    std::size_t written_ = 0;
};

}  // namespace hearthmark::exporting
