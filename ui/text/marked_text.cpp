// SPDX-License-Identifier: MIT
#include "ui/text/marked_text.h"

#include <algorithm>

#include "base/text.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

// More than there is room for on any screen.
constexpr std::size_t kMostBytes = 4000;

QString escaped(const std::string& text, std::size_t begin, std::size_t end) {
    QString escaped;
    for (const QChar each : toQString(text.substr(begin, end - begin)).toHtmlEscaped()) {
        if (each == u'\n') {
            escaped += QStringLiteral("<br>");
        } else if (each.isNull()) {
            escaped += QChar(QChar::ReplacementCharacter);  // at which the text would end
        } else if (each.isSpace()) {
            escaped +=
                QStringLiteral("&nbsp;");  // else one is shown of several, and none at an end
        } else {
            escaped += each;
        }
    }
    return escaped;
}

}  // namespace

QString markedText(const std::string& text, const std::vector<base::TextRange>& ranges) {
    std::size_t shown = std::min(text.size(), kMostBytes);
    while (shown < text.size() && !base::beginsCharacter(text[shown])) {
        ++shown;
    }
    QString marked;
    std::size_t at = 0;
    for (const base::TextRange& range : ranges) {
        if (range.end > shown) {
            break;
        }
        marked += escaped(text, at, range.begin) + QStringLiteral("<b>") +
                  escaped(text, range.begin, range.end) + QStringLiteral("</b>");
        at = range.end;
    }
    return marked + escaped(text, at, shown);
}

}  // namespace hearthmark::ui
