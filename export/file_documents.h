// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/calendar.h"
#include "base/clock.h"
#include "export/text_parts.h"
#include "services/ports/file_chooser.h"
#include "store/live_data.h"

namespace hearthmark::exporting {

// What was left out of a file.
struct LeftOut {
    // Of tasks.
    std::vector<std::optional<std::string>> names;
    std::size_t intervals = 0;
};

// Makes what is written to a file out of what the store holds at that moment. Main thread.
class FileDocuments {
 public:
    // What is written, and what it has left out, once it was.
    struct Document {
        std::unique_ptr<TextParts> text;
        std::function<LeftOut()> leftOut;
    };

    FileDocuments(std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
                  std::shared_ptr<const base::Clock> clock,
                  std::shared_ptr<const base::Calendar> calendar);

    Document everything() const;
    // The intervals begun in [from, to), as a table or a calendar.
    Document shown(base::Date from, base::Date to, services::FileKind kind) const;

    // What the files may be called.
    std::string nameOfEverything() const;
    std::string nameOfShown(base::Date from, base::Date to, services::FileKind kind) const;

 private:
    store::Tasks tasks() const;
    std::string dayOf(base::Date date) const;

    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<const base::Calendar> calendar_;
};

}  // namespace hearthmark::exporting
