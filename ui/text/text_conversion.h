// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>

namespace hearthmark::ui {

// The one place where the core's UTF-8 becomes the toolkit's text and back. Bytes that are not
// valid UTF-8 show as U+FFFD.
inline QString toQString(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// For a sentence: the lines of a name stand side by side.
inline QString toOneLine(const std::string& text) {
    return toQString(text).simplified();
}

inline std::string toUtf8(const QString& text) {
    return text.toUtf8().toStdString();
}

}  // namespace hearthmark::ui
