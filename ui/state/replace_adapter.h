// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

namespace hearthmark::ui {

// Puts the next adapter, or none, in the place of another and tells its view by `announce`. That
// happens while the old one still exists, so that no binding looks at one that is gone; and the old
// one is deleted later, since the change may come from a call of its own.
template <class Adapter, class Announce>
void replaceAdapter(std::unique_ptr<Adapter>& adapter, std::unique_ptr<Adapter> next,
                    const Announce& announce) {
    std::unique_ptr<Adapter> old = std::exchange(adapter, std::move(next));
    announce();
    if (old) {
        old.release()->deleteLater();
    }
}

}  // namespace hearthmark::ui
