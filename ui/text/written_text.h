// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <string>

#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// A text that a person writes, of which whoever keeps it has at each moment what is typed.
// Deriving from it names it in full, as with its base.
class WrittenText : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("it is what editors know of adapters")

 public:
    virtual bool isWriting() const = 0;
    // As far as it is typed.
    virtual std::string text() const = 0;
    // What the editor now holds.
    virtual void type(const std::string& text) = 0;
};

}  // namespace hearthmark::ui
